// SPDX-License-Identifier: MIT
#include "HttpClientSistema.h"
#include "platform/HttpClient.h"
#include "senales.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <thread>

#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
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

// Whether an interface with this address has its cable in. The routes of one without may stay.
bool conectada(const sockaddr_storage &propia)
{
    ifaddrs *interfaces = nullptr;
    if (::getifaddrs(&interfaces) != 0)
        return true; // not known: the failed attempt is the request's end, as before any answer
    bool alguna = false;
    bool conCable = false;
    for (const ifaddrs *una = interfaces; una; una = una->ifa_next) {
        if (!mismaDireccion(una->ifa_addr, propia))
            continue;
        alguna = true;
        conCable = conCable || (una->ifa_flags & IFF_RUNNING) != 0;
    }
    ::freeifaddrs(interfaces);
    return conCable || !alguna;
}

HttpClientSistema::Busqueda buscar(const QByteArray &nombre)
{
    addrinfo pedido = {};
    pedido.ai_socktype = SOCK_STREAM;
    addrinfo *hallado = nullptr;
    const int error = ::getaddrinfo(nombre.constData(), nullptr, &pedido, &hallado);
    if (hallado)
        ::freeaddrinfo(hallado);
    return error == 0 || error == EAI_AGAIN ? HttpClientSistema::Busqueda::OtraVez
                                            : HttpClientSistema::Busqueda::No;
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

void esperar(std::vector<Espera> &esperas, std::chrono::milliseconds alMas)
{
    std::vector<pollfd> sucesos;
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
              || conectada(propia);
    }
    ::close(zocalo);
    return hay;
}

std::shared_ptr<const Consulta> consultar(const QByteArray &nombre)
{
    const auto consulta = std::make_shared<Consulta>(Busqueda::EnCurso);
    try {
        std::thread([consulta, nombre] { *consulta = buscar(nombre); }).detach();
    } catch (const std::system_error &) {
        return nullptr;
    }
    return consulta;
}

} // namespace HttpClientSistema
