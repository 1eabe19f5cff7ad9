// SPDX-License-Identifier: MIT
#include "Obrero_linux.h"

#include "herencia.h"
#include "platform/arranque_linux.h"

#include <QFile>
#include <QSocketNotifier>

#include <cerrno>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QByteArray nombreDe(const QByteArray &variable)
{
    return variable.left(variable.indexOf('=') + 1);
}

// This program's environment with `variables` in place of those of the same name.
QList<QByteArray> entornoCon(const QList<QByteArray> &variables)
{
    QList<QByteArray> entorno = variables;
    for (char **una = environ; *una; ++una) {
        const QByteArray heredada(*una);
        bool sustituida = false;
        for (const QByteArray &variable : variables)
            sustituida = sustituida || heredada.startsWith(nombreDe(variable));
        if (!sustituida)
            entorno << heredada;
    }
    return entorno;
}

std::optional<pid_t> lanzar(const QString &programa, const QList<QByteArray> &variables,
                            int entrada)
{
    QList<QByteArray> entorno = entornoCon(variables);
    std::vector<char *> punteros;
    for (QByteArray &variable : entorno)
        punteros.push_back(variable.data());
    punteros.push_back(nullptr);
    return arranque::lanzar(QFile::encodeName(programa).toStdString(), {}, punteros.data(), entrada,
                            arranque::Aparte::Sesion);
}

} // namespace

std::unique_ptr<Obrero> Obrero::arrancar(const QString &programa,
                                         const QList<QByteArray> &variables,
                                         std::function<void()> alTerminar)
{
    herencia::nada();
    int extremos[2] = {-1, -1};
    // Closed on exec, so that a browser opened later does not keep it open.
    if (programa.isEmpty() || ::pipe2(extremos, O_CLOEXEC) != 0)
        return nullptr;
    // This end alone: a worker that waits in its reads would take an empty pipe for a broken one.
    const bool listo = ::fcntl(extremos[1], F_SETFL, O_NONBLOCK) == 0;
    const auto pid = listo ? lanzar(programa, variables, extremos[0]) : std::nullopt;
    ::close(extremos[0]);
    if (!pid) {
        ::close(extremos[1]);
        return nullptr;
    }
    std::unique_ptr<Obrero> obrero(new Obrero(*pid, extremos[1], std::move(alTerminar)));
    obrero->vigilar();
    return obrero;
}

Obrero::Obrero(pid_t pid, int tuberia, std::function<void()> alTerminar)
    : m_pid(pid), m_tuberia(tuberia), m_alTerminar(std::move(alTerminar))
{
}

// Where there is no such witness, the end is noticed when somebody asks.
void Obrero::vigilar()
{
    // The library's own name for it is not declared for C++.
    m_testigo = static_cast<int>(::syscall(SYS_pidfd_open, m_pid, 0));
    if (m_testigo < 0)
        return;
    m_aviso = std::make_unique<QSocketNotifier>(m_testigo, QSocketNotifier::Read);
    QObject::connect(m_aviso.get(), &QSocketNotifier::activated, m_aviso.get(), [this] {
        if (!termino())
            return;
        const auto avisar = m_alTerminar; // this object may be gone before it returns
        avisar();
    });
}

Obrero::~Obrero()
{
    soltar();
    if (m_aviso) {
        m_aviso->setEnabled(false);
        m_aviso.release()->deleteLater(); // its signal may be the one being handled
    }
    if (m_testigo >= 0)
        ::close(m_testigo);
}

Obrero::Escrito Obrero::escribir(QByteArray &lineas)
{
    for (;;) {
        const ssize_t escritos =
            ::write(m_tuberia, lineas.constData(), static_cast<size_t>(lineas.size()));
        if (escritos >= 0) {
            m_dado += lineas.left(static_cast<qsizetype>(escritos));
            m_tomoAlgo = tomoAlgo();
            m_dado = sinTomar();
            lineas.remove(0, static_cast<qsizetype>(escritos));
            return Escrito::Algo;
        }
        if (errno == EAGAIN)
            return Escrito::Lleno;
        if (errno != EINTR)
            return Escrito::Cerrado;
    }
}

// The pipe tells this at either end, also when nobody is left to read it.
qsizetype Obrero::sinLeer() const
{
    int bytes = 0;
    return m_tuberia >= 0 && ::ioctl(m_tuberia, FIONREAD, &bytes) == 0 ? bytes : 0;
}

QByteArray Obrero::sinTomar() const
{
    const qsizetype leidos = m_dado.size() - sinLeer();
    return leidos <= 0 ? m_dado : m_dado.mid(m_dado.lastIndexOf('\n', leidos - 1) + 1);
}

QByteArray Obrero::lineaEmpezada() const
{
    return m_dado.mid(m_dado.lastIndexOf('\n') + 1);
}

bool Obrero::tomoAlgo() const
{
    return m_tomoAlgo || sinLeer() < m_dado.size();
}

void Obrero::soltar()
{
    if (m_tuberia >= 0)
        ::close(m_tuberia);
    m_tuberia = -1;
}

bool Obrero::termino()
{
    if (m_pid <= 0)
        return true;
    const pid_t segado = ::waitpid(m_pid, nullptr, WNOHANG);
    if (segado == 0 || (segado < 0 && errno == EINTR))
        return false;
    m_pid = -1;
    if (m_aviso)
        m_aviso->setEnabled(false);
    return true;
}
