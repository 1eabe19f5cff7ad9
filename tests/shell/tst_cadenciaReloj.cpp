// SPDX-License-Identifier: MIT
// What gathered painting and laying out make of time, by a clock that this test moves.
#include "shell/VentanaConCadencia.h"

#include <atomic>
#include <chrono>

#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

// By how much the clock has been put forward, and at what it stands still; 0: it runs.
std::atomic<std::chrono::milliseconds> adelanto{};
std::atomic<qint64> detenido = 0; // nanoseconds

class Detenido {
public:
    Detenido() { detenido = std::chrono::steady_clock::now().time_since_epoch().count(); }
    ~Detenido() { detenido = 0; }
    Detenido(const Detenido &) = delete;
    Detenido &operator=(const Detenido &) = delete;
};

} // namespace

// The system's clock as all of the process sees it, the library too.
extern "C" int clock_gettime(clockid_t reloj, timespec *hora) noexcept
{
    if (::syscall(SYS_clock_gettime, reloj, hora) != 0)
        return -1;
    const qint64 nanos = hora->tv_nsec + std::chrono::nanoseconds(adelanto.load()).count();
    hora->tv_sec += nanos / 1'000'000'000;
    hora->tv_nsec = nanos % 1'000'000'000;
    if (reloj == CLOCK_MONOTONIC && detenido != 0) {
        hora->tv_sec = detenido / 1'000'000'000;
        hora->tv_nsec = detenido % 1'000'000'000;
    }
    return 0;
}

class tst_cadenciaReloj : public QObject, VentanaConCadencia {
    Q_OBJECT

private Q_SLOTS:
    void init() { abrir(); }
    void cleanup() { cerrar(); }

    void pausa_loQueTardaLaPinturaEsDeElla_data()
    {
        QTest::addColumn<std::chrono::milliseconds>("tarda");
        QTest::addColumn<std::chrono::nanoseconds>("queda"); // at the most
        QTest::newRow("poco") << 30ms << std::chrono::nanoseconds(470ms);
        QTest::newRow("mas que la pausa") << 700ms << std::chrono::nanoseconds(0);
    }
    void pausa_loQueTardaLaPinturaEsDeElla()
    {
        QFETCH(std::chrono::milliseconds, tarda);
        QFETCH(std::chrono::nanoseconds, queda);
        retenerUnCambio();
        m_testigo->alPintar = [tarda] {
            adelanto = adelanto.load() + tarda;
        };
        std::chrono::nanoseconds pedida = 1h;
        const auto antes = std::chrono::steady_clock::now();
        m_cadencia->alDiaEn([&](std::chrono::nanoseconds resta) { pedida = resta; })(500ms);
        const auto pasado = std::chrono::steady_clock::now() - antes;
        QVERIFY2(pedida >= 0ns && pedida <= queda, qPrintable(QString::number(pedida.count())));
        QVERIFY(pedida == 0ns || pedida + pasado >= 500ms);
    }

    // Whatever follows the change at once, a request above all, goes first.
    void unCambioTrasMuchaCalma_noSePintaEnSeguida()
    {
        adelanto = adelanto.load() + 100ms;
        m_testigo->pintados.clear();
        {
            const Detenido reloj;
            m_barra->ponerValor(m_barra->valor() + 1);
            for (int vuelta = 0; vuelta < 10; ++vuelta)
                QCoreApplication::processEvents();
            QVERIFY(m_testigo->pintados.isEmpty());
        }
        QTRY_COMPARE(m_testigo->ultimo(), m_barra->valor());
    }
};

QTEST_MAIN(tst_cadenciaReloj)
#include "tst_cadenciaReloj.moc"
