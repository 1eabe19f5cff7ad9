#include "platform/Verbos.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QProcess>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QTimer>

#include <cerrno>
#include <chrono>
#include <csignal>

#include <fcntl.h>
#include <linux/close_range.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Beside the running program, then in the installation, then on PATH.
QString programaImpresion()
{
    const QString nombre = QStringLiteral("parvanel-print");
    for (const QString &carpeta :
         {QCoreApplication::applicationDirPath(), QStringLiteral(PARVANEL_LIBEXECDIR)}) {
        const QString hallado = QStandardPaths::findExecutable(nombre, {carpeta});
        if (!hallado.isEmpty())
            return hallado;
    }
    return QStandardPaths::findExecutable(nombre);
}

// A program started here inherits none of this one's descriptors: libraries open some that would
// go along, and a pipe or connection held open by a browser would never end.
void nadaSeHereda()
{
    ::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
}

struct Obrero {
    pid_t pid = -1;
    int tuberia = -1; // its standard input
};

// Starts the worker in a session of its own, so that neither a closed terminal nor the end of
// this program ends it; its pipe closes on exec, so that a browser opened later does not keep
// it open.
Obrero arrancar(const QString &programa)
{
    Obrero obrero;
    nadaSeHereda();
    int extremos[2] = {-1, -1};
    if (programa.isEmpty() || ::pipe2(extremos, O_CLOEXEC) != 0)
        return obrero;
    posix_spawn_file_actions_t acciones;
    posix_spawn_file_actions_init(&acciones);
    posix_spawn_file_actions_adddup2(&acciones, extremos[0], STDIN_FILENO);
    posix_spawn_file_actions_addopen(&acciones, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&acciones, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_t atributos;
    posix_spawnattr_init(&atributos);
    posix_spawnattr_setflags(&atributos, POSIX_SPAWN_SETSID);
    QByteArray ruta = QFile::encodeName(programa);
    char *argumentos[] = {ruta.data(), nullptr};
    const int fallo =
        ::posix_spawn(&obrero.pid, ruta.constData(), &acciones, &atributos, argumentos, environ);
    posix_spawnattr_destroy(&atributos);
    posix_spawn_file_actions_destroy(&acciones);
    ::close(extremos[0]);
    if (fallo != 0) {
        ::close(extremos[1]);
        return Obrero();
    }
    ::fcntl(extremos[1], F_SETFL, ::fcntl(extremos[1], F_GETFL) | O_NONBLOCK);
    obrero.tuberia = extremos[1];
    return obrero;
}

} // namespace

// Keeps what the worker has not taken yet, and writes it whenever the pipe has room: the window
// never waits for the worker.
class Verbos::Interno : public QObject {
public:
    explicit Interno(std::chrono::milliseconds plazoAtasco) : m_plazoAtasco(plazoAtasco)
    {
        std::signal(SIGPIPE, SIG_IGN); // a worker that is gone is an error of the write
        m_atasco.setSingleShot(true);
        connect(&m_atasco, &QTimer::timeout, this, [this] {
            reemplazar();
            escribir();
        });
    }

    ~Interno() override { soltar(); }

    void entregar(const QString &documento)
    {
        m_pendiente += QFile::encodeName(documento) + '\n';
        if (m_obrero.tuberia < 0)
            tomar();
        escribir();
    }

private:
    // A worker that cannot be started is as good as a missing print handler: nothing is printed
    // and nothing is said.
    void tomar()
    {
        m_obrero = arrancar(programaImpresion());
        if (m_obrero.tuberia < 0) {
            m_pendiente.clear();
            return;
        }
        m_aviso = std::make_unique<QSocketNotifier>(m_obrero.tuberia, QSocketNotifier::Write);
        m_aviso->setEnabled(false);
        connect(m_aviso.get(), &QSocketNotifier::activated, this, [this] { escribir(); });
    }

    void soltar()
    {
        m_atasco.stop();
        if (m_aviso) {
            m_aviso->setEnabled(false);
            m_aviso.release()->deleteLater(); // its signal may be the one being handled
        }
        if (m_obrero.tuberia >= 0)
            ::close(m_obrero.tuberia);
        if (m_obrero.pid > 0)
            ::waitpid(m_obrero.pid, nullptr, WNOHANG);
        m_obrero = Obrero();
    }

    // The next worker gets the pending documents, beginning with the whole line that the last
    // one was given only in part. The last one is left alone: if it is only slow, it still prints
    // what it has been given.
    void reemplazar()
    {
        soltar();
        m_pendiente.prepend(m_escrito);
        m_escrito.clear();
        tomar();
    }

    void escribir()
    {
        bool reemplazado = false;
        while (!m_pendiente.isEmpty() && m_obrero.tuberia >= 0) {
            const ssize_t escritos = ::write(m_obrero.tuberia, m_pendiente.constData(),
                                             static_cast<size_t>(m_pendiente.size()));
            if (escritos > 0) {
                anotar(m_pendiente.left(static_cast<qsizetype>(escritos)));
                m_pendiente.remove(0, static_cast<qsizetype>(escritos));
                m_atasco.stop();
            } else if (errno == EAGAIN) {
                m_aviso->setEnabled(true);
                if (!m_atasco.isActive())
                    m_atasco.start(m_plazoAtasco);
                return;
            } else if (errno != EINTR) {
                if (reemplazado) { // a worker that ends at once, every time
                    m_pendiente.clear();
                    soltar();
                    return;
                }
                reemplazado = true;
                reemplazar();
            }
        }
        if (m_aviso)
            m_aviso->setEnabled(false);
    }

    // Remembers the part of a document's line that the worker has been given without its end.
    void anotar(const QByteArray &bytes)
    {
        m_escrito += bytes;
        m_escrito.remove(0, m_escrito.lastIndexOf('\n') + 1);
    }

    Obrero m_obrero;
    std::unique_ptr<QSocketNotifier> m_aviso;
    QByteArray m_pendiente; // not yet written
    QByteArray m_escrito;   // written of a line whose end is still pending
    std::chrono::milliseconds m_plazoAtasco;
    QTimer m_atasco;
};

Verbos::Verbos(std::chrono::milliseconds plazoAtasco) : d(std::make_unique<Interno>(plazoAtasco)) {}

Verbos::~Verbos() = default;

void Verbos::abrir(const QString &documento)
{
    nadaSeHereda();
    QProcess::startDetached(QStringLiteral("xdg-open"), {documento});
}

void Verbos::imprimir(const QString &documento)
{
    if (QFileInfo(documento).isFile())
        d->entregar(documento);
}
