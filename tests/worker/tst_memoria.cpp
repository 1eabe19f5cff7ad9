// SPDX-License-Identifier: MIT
#include "worker/memoria.h"

#include <QtTest>

#include <array>
#include <csignal>
#include <cstring>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

class tst_memoria : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void grupoQueNoEsta_nadaOcupa();
    void grupoDeDos_cuentaAmbos();
    void memoriaCompartida_cuentaUnaVez();
};

namespace {

constexpr std::size_t mega = std::size_t{1} << 20;

// Two processes in a group of their own, each of which has touched `bytes` of memory of its own or
// of one piece that they share, ended with the object.
class Pareja {
public:
    Pareja(std::size_t bytes, bool compartida)
    {
        void *deAmbos = compartida ? pedir(bytes, MAP_SHARED) : nullptr;
        std::array<int, 2> tubo{};
        if (pipe(tubo.data()) != 0)
            qFatal("no pipe");
        for (pid_t &pid : m_pids) {
            pid = fork();
            if (pid == 0) {
                setpgid(0, m_pids.front());
                std::memset(deAmbos ? deAmbos : pedir(bytes, MAP_PRIVATE), 1, bytes);
                [[maybe_unused]] const auto escrito = write(tubo[1], "x", 1);
                for (;;)
                    pause();
            }
            setpgid(pid, m_pids.front()); // whoever comes first
        }
        char listo = 0;
        for (int i = 0; i < 2; ++i) {
            if (read(tubo[0], &listo, 1) != 1)
                qFatal("no child");
        }
        close(tubo[0]);
        close(tubo[1]);
        if (deAmbos)
            munmap(deAmbos, bytes);
    }
    ~Pareja()
    {
        for (const pid_t pid : m_pids) {
            kill(pid, SIGKILL);
            waitpid(pid, nullptr, 0);
        }
    }
    pid_t grupo() const { return m_pids.front(); }

private:
    static void *pedir(std::size_t bytes, int de)
    {
        void *memoria = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, de | MAP_ANONYMOUS, -1, 0);
        if (memoria == MAP_FAILED)
            qFatal("no memory");
        return memoria;
    }
    std::array<pid_t, 2> m_pids{};
};

} // namespace

void tst_memoria::grupoQueNoEsta_nadaOcupa()
{
    QVERIFY(!memoria::excede(0x7FFFFFFF, 0));
}

void tst_memoria::grupoDeDos_cuentaAmbos()
{
    const Pareja pareja(100 * mega, false);
    QVERIFY(memoria::excede(pareja.grupo(), 195 * mega));
    QVERIFY(!memoria::excede(pareja.grupo(), 1000 * mega));
}

void tst_memoria::memoriaCompartida_cuentaUnaVez()
{
    const Pareja pareja(100 * mega, true);
    QVERIFY(memoria::excede(pareja.grupo(), 95 * mega));
    QVERIFY(!memoria::excede(pareja.grupo(), 195 * mega));
}

QTEST_GUILESS_MAIN(tst_memoria)
#include "tst_memoria.moc"
