// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <array>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// A session bus of the test's own: nobody else's desktop has a say, and none hears of it.
class BusPrivado {
public:
    BusPrivado()
    {
        const QByteArray programa =
            QFile::encodeName(QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")));
        int tuberia[2] = {-1, -1};
        // No folders of services: a portal that is installed would else be started.
        if (programa.isEmpty())
            return;
        if (!m_reglas.open()
            || m_reglas.write("<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>"
                              "<auth>EXTERNAL</auth><policy context=\"default\">"
                              "<allow send_destination=\"*\" eavesdrop=\"true\"/>"
                              "<allow eavesdrop=\"true\"/><allow own=\"*\"/>"
                              "</policy></busconfig>")
                   < 0
            || !m_reglas.flush() || ::pipe2(tuberia, O_CLOEXEC) != 0)
            qFatal("no place for the bus's rules");
        posix_spawn_file_actions_t acciones;
        posix_spawn_file_actions_init(&acciones);
        posix_spawn_file_actions_adddup2(&acciones, tuberia[1], STDOUT_FILENO);
        QByteArray nombre = "dbus-daemon";
        QByteArray reglas = "--config-file=" + QFile::encodeName(m_reglas.fileName());
        QByteArray sinSegundoPlano = "--nofork";
        QByteArray direccion = "--print-address=1";
        std::array<char *, 5> argumentos = {nombre.data(), reglas.data(), sinSegundoPlano.data(),
                                            direccion.data(), nullptr};
        if (::posix_spawn(&m_pid, programa.constData(), &acciones, nullptr, argumentos.data(),
                          environ)
            != 0)
            qFatal("dbus-daemon does not start");
        posix_spawn_file_actions_destroy(&acciones);
        ::close(tuberia[1]);
        std::array<char, 1024> linea;
        const ssize_t leidos = ::read(tuberia[0], linea.data(), linea.size());
        ::close(tuberia[0]);
        if (leidos <= 0)
            qFatal("dbus-daemon says no address");
        qputenv("DBUS_SESSION_BUS_ADDRESS", QByteArray(linea.data(), leidos).trimmed());
    }
    ~BusPrivado()
    {
        if (m_pid <= 0)
            return;
        ::kill(m_pid, SIGTERM);
        ::waitpid(m_pid, nullptr, 0);
    }
    BusPrivado(const BusPrivado &) = delete;
    BusPrivado &operator=(const BusPrivado &) = delete;

    // False where the program is not installed; anything else that keeps it from running ends the
    // test.
    bool corre() const { return m_pid > 0; }

private:
    QTemporaryFile m_reglas;
    pid_t m_pid = -1;
};

// Runs the test's own program with the argument --sin-bus where there is no bus at all; whether it
// ended as it should.
inline bool bienSinBus()
{
    QProcess otro;
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/no"));
    otro.setProcessEnvironment(entorno);
    otro.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--sin-bus")});
    return otro.waitForFinished() && otro.exitStatus() == QProcess::NormalExit
           && otro.exitCode() == 0;
}
