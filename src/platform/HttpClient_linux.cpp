// SPDX-License-Identifier: MIT
#include "HttpClientSistema.h"
#include "platform/HttpClient.h"
#include "senales.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <optional>
#include <span>

#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

QString HttpClient::autoridadesDelSistema()
{
    return u"/etc/ssl/certs/ca-certificates.crt"_s;
}

namespace {

bool mismaDireccion(const sockaddr *una, const sockaddr_storage &otra)
{
    if (!una || una->sa_family != otra.ss_family)
        return false;
    if (una->sa_family == AF_INET)
        return reinterpret_cast<const sockaddr_in *>(una)->sin_addr.s_addr
               == reinterpret_cast<const sockaddr_in &>(otra).sin_addr.s_addr;
    return una->sa_family == AF_INET6
           && IN6_ARE_ADDR_EQUAL(&reinterpret_cast<const sockaddr_in6 *>(una)->sin6_addr,
                                 &reinterpret_cast<const sockaddr_in6 &>(otra).sin6_addr);
}

// Whether an interface is up and has its cable in: the routes of one without may stay. Nothing when
// none has this address.
std::optional<bool> conectada(const sockaddr_storage &propia)
{
    ifaddrs *interfaces = nullptr;
    if (::getifaddrs(&interfaces) != 0)
        return std::nullopt;
    std::optional<bool> conCable;
    for (const ifaddrs *una = interfaces; una; una = una->ifa_next) {
        if (mismaDireccion(una->ifa_addr, propia))
            conCable = conCable.value_or(false) || (una->ifa_flags & IFF_RUNNING) != 0;
    }
    ::freeifaddrs(interfaces);
    return conCable;
}

// The same of the older kind of addresses alone, and where there are few of them, through a socket
// that is open already: at each request the other way would cost more than the request's
// connection.
std::optional<bool> conectadaDeCerca(int zocalo, const sockaddr_storage &propia)
{
    std::array<ifreq, 16> interfaces{};
    ifconf pedido{};
    pedido.ifc_len = sizeof interfaces;
    pedido.ifc_req = interfaces.data();
    if (propia.ss_family != AF_INET || ::ioctl(zocalo, SIOCGIFCONF, &pedido) != 0)
        return std::nullopt;
    const auto cuantas = static_cast<std::size_t>(pedido.ifc_len) / sizeof(ifreq);
    if (cuantas == interfaces.size())
        return std::nullopt; // there may be more of them
    std::optional<bool> conCable;
    for (ifreq &una : std::span(interfaces).first(cuantas)) {
        if (!mismaDireccion(&una.ifr_addr, propia) || ::ioctl(zocalo, SIOCGIFFLAGS, &una) != 0)
            continue;
        conCable = conCable.value_or(false) || (una.ifr_flags & IFF_RUNNING) != 0;
    }
    return conCable;
}

// Not known is as good as connected.
bool conectada(int zocalo, const sockaddr_storage &propia)
{
    const auto deCerca = conectadaDeCerca(zocalo, propia);
    return deCerca ? *deCerca : conectada(propia).value_or(true);
}

} // namespace

namespace HttpClientSistema {

void preparar()
{
    // The library ignores the signal by itself only where it may set timers by signals as well, and
    // TLS writes once more to a connection that is closed.
    senales::sinTuberiaRota();
    ::unsetenv("SSLKEYLOGFILE");
}

curl_socket_t abrirZocalo(int familia, int tipo, int protocolo)
{
    return ::socket(familia, tipo | SOCK_CLOEXEC, protocolo);
}

// One bundle and no folder of certificates: only so is the bundle parsed once and not at every
// connection (19 ms of CPU each).
bool confiarEn(const BibliotecaCurl &curl, CURL *easy, const QByteArray &autoridades)
{
    constexpr const char *nada = nullptr;
    return curl.easy_setopt(easy, CURLOPT_CAINFO, autoridades.constData()) == CURLE_OK
           && curl.easy_setopt(easy, CURLOPT_CAPATH, nada) == CURLE_OK;
}

// The library's word is enough.
bool esDeConfianza(const BibliotecaCurl &, CURL *, const QByteArray &)
{
    return true;
}

class Proxy::Interno {};

Proxy::Proxy() = default;
Proxy::~Proxy() = default;

// What the environment names is all that there is.
bool Proxy::conocido(const QByteArray &)
{
    return true;
}

bool Proxy::poner(const BibliotecaCurl &, CURL *, const QByteArray &) const
{
    return true;
}

void esperar(std::vector<Espera> &esperas, std::chrono::milliseconds alMas)
{
    std::vector<pollfd> sucesos;
    sucesos.reserve(esperas.size());
    for (const Espera &una : esperas)
        sucesos.push_back(
            {una.conexion,
             static_cast<short>((una.leer ? POLLIN : 0) | (una.escribir ? POLLOUT : 0)), 0});
    const bool hay = ::poll(sucesos.data(), sucesos.size(), static_cast<int>(alMas.count())) > 0;
    constexpr short fallo = POLLERR | POLLHUP | POLLNVAL;
    for (std::size_t i = 0; i < esperas.size(); ++i) {
        const int listo = hay ? sucesos[i].revents : 0;
        esperas[i].leer = esperas[i].leer && (listo & (POLLIN | fallo)) != 0;
        esperas[i].escribir = esperas[i].escribir && (listo & (POLLOUT | fallo)) != 0;
    }
}

void girar()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

bool avisaDeTodo()
{
    return true;
}

// To "connect" a datagram socket is to look for a route and no more.
bool haySalida(const void *direccion, std::size_t largo)
{
    const auto *par = static_cast<const sockaddr *>(direccion);
    const int zocalo = ::socket(par->sa_family, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (zocalo < 0)
        return true; // not known
    bool hay = true;
    if (::connect(zocalo, par, static_cast<socklen_t>(largo)) != 0) {
        hay = errno != ENETUNREACH && errno != EHOSTUNREACH && errno != ENETDOWN
              && errno != EADDRNOTAVAIL;
    } else {
        sockaddr_storage propia = {};
        socklen_t cuanto = sizeof propia;
        hay = ::getsockname(zocalo, reinterpret_cast<sockaddr *>(&propia), &cuanto) != 0
              || conectada(zocalo, propia);
    }
    ::close(zocalo);
    return hay;
}

Busqueda buscar(const QByteArray &nombre)
{
    addrinfo pedido = {};
    pedido.ai_socktype = SOCK_STREAM;
    addrinfo *hallado = nullptr;
    const int error = ::getaddrinfo(nombre.constData(), nullptr, &pedido, &hallado);
    if (hallado)
        ::freeaddrinfo(hallado);
    return error == 0 || error == EAI_AGAIN ? Busqueda::OtraVez : Busqueda::No;
}

} // namespace HttpClientSistema
