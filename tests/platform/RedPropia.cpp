// SPDX-License-Identifier: MIT
#include "RedPropia.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <thread>

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

QString nombresSabidos(const QByteArray &hosts)
{
    static const QString motivo = poner("/etc/hosts", {});
    if (!motivo.isEmpty())
        return motivo;
    return ::truncate("/etc/hosts", 0) == 0 && escribir("/etc/hosts", hosts) ? QString()
                                                                             : error("hosts");
}

namespace otraOrilla {

namespace {

int alliRed = -1; // descriptor of the second network

bool orden(const QByteArray &que)
{
    return std::system(que.constData()) == 0;
}

} // namespace

QString tender()
{
    std::thread([] {
        if (::unshare(CLONE_NEWNET) == 0)
            alliRed = ::open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC);
    }).join();
    if (alliRed < 0)
        return error("no second network namespace");
    const QByteArray red =
        "/proc/" + QByteArray::number(::getpid()) + "/fd/" + QByteArray::number(alliRed);
    bool tendido = orden("ip link add cable0 type veth peer name cable1 netns " + red)
                   && orden("ip addr add 10.77.0.1/24 dev cable0") && encender();
    alli([&] {
        tendido = tendido && orden("ip addr add 10.77.0.2/24 dev cable1")
                  && orden("ip link set cable1 up");
    });
    return tendido ? QString() : u"no veth interface to be had (ip link)"_s;
}

void alli(const std::function<void()> &que)
{
    std::thread([&] {
        if (::setns(alliRed, CLONE_NEWNET) != 0)
            qFatal("the second network is gone");
        que();
    }).join();
}

bool apagar()
{
    return orden("ip link set cable0 down");
}

bool encender()
{
    return orden("ip link set cable0 up");
}

bool desenchufar()
{
    bool hecho = false;
    alli([&] { hecho = orden("ip link set cable1 down"); });
    return hecho;
}

bool enchufar()
{
    bool hecho = false;
    alli([&] { hecho = orden("ip link set cable1 up"); });
    return hecho;
}

} // namespace otraOrilla

} // namespace RedPropia
