#include "RedPropia.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString error(const char *que)
{
    return QString::fromLatin1(que) + u": "_s + QString::fromLocal8Bit(std::strerror(errno));
}

bool escribir(const char *donde, const QByteArray &que)
{
    const int archivo = ::open(donde, O_WRONLY | O_CLOEXEC);
    const bool escrito = ::write(archivo, que.constData(), static_cast<size_t>(que.size()))
                         == static_cast<ssize_t>(que.size());
    ::close(archivo);
    return escrito;
}

bool separarse()
{
    if (::unshare(CLONE_NEWNET | CLONE_NEWNS) == 0)
        return true;
    const QByteArray usuario = QByteArray::number(::geteuid());
    const QByteArray grupo = QByteArray::number(::getegid());
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNET | CLONE_NEWNS) == 0
           && escribir("/proc/self/setgroups", "deny")
           && escribir("/proc/self/uid_map", "0 " + usuario + " 1")
           && escribir("/proc/self/gid_map", "0 " + grupo + " 1");
}

bool encenderLoopback()
{
    const int zocalo = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq pedido = {};
    std::strcpy(pedido.ifr_name, "lo");
    pedido.ifr_flags = IFF_UP;
    const bool encendida = ::ioctl(zocalo, SIOCSIFFLAGS, &pedido) == 0;
    ::close(zocalo);
    return encendida;
}

// A file of this content in the place of another, for this process and its children alone.
QString poner(const char *archivo, const QByteArray &contenido)
{
    char temporal[] = "/tmp/red-propia-XXXXXX";
    const int nuevo = ::mkstemp(temporal);
    if (nuevo < 0)
        return error("temporary file");
    ::close(nuevo);
    const bool puesto = escribir(temporal, contenido) && ::chmod(temporal, 0644) == 0
                        && ::mount(temporal, archivo, nullptr, MS_BIND, nullptr) == 0;
    const QString motivo = puesto ? QString() : error(archivo);
    ::unlink(temporal);
    return motivo;
}

} // namespace

namespace RedPropia {

QString entrar()
{
    if (!separarse())
        return error("no network namespace here");
    // What is put in a file's place is nobody else's business.
    if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return error("mounts");
    return encenderLoopback() ? QString() : error("loopback interface");
}

QString nombresSegun(const QByteArray &resolvConf)
{
    const QString motivo = poner("/etc/resolv.conf", resolvConf);
    return motivo.isEmpty() ? poner("/etc/nsswitch.conf", "hosts: files dns\n") : motivo;
}

} // namespace RedPropia
