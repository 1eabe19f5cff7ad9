// SPDX-License-Identifier: MIT
#include "demostracion/zocalos.h"

#include <mutex>
#include <stdexcept>

#define WIN32_LEAN_AND_MEAN
#include <winsock2.h>
#include <ws2tcpip.h>

namespace {

using zocalos::Zocalo;

SOCKET propio(Zocalo zocalo)
{
    return static_cast<SOCKET>(zocalo);
}

sockaddr_in lugar(const char *direccion, int puerto)
{
    sockaddr_in donde = {};
    donde.sin_family = AF_INET;
    donde.sin_port = ::htons(static_cast<u_short>(puerto));
    donde.sin_addr.s_addr = ::inet_addr(direccion);
    return donde;
}

// The system's sockets have to be begun once in a process. They are never ended: a thread that
// was left to itself may be at them until the process ends.
void comenzar()
{
    static std::once_flag unaVez;
    std::call_once(unaVez, [] {
        WSADATA datos = {};
        // Where it fails no socket can be had, and that is told then.
        static_cast<void>(::WSAStartup(MAKEWORD(2, 2), &datos));
    });
}

SOCKET nuevo()
{
    comenzar();
    return ::WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0,
                        WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
}

void bloquear(SOCKET zocalo, bool si)
{
    u_long sinBloqueo = si ? 0 : 1;
    // Of an open socket it cannot fail.
    static_cast<void>(::ioctlsocket(zocalo, FIONBIO, &sinBloqueo));
}

qsizetype movidos(int cuantos)
{
    return cuantos == SOCKET_ERROR && ::WSAGetLastError() == WSAEWOULDBLOCK ? zocalos::ahoraNo
                                                                            : cuantos;
}

int trozo(qsizetype cuantos)
{
    return static_cast<int>(qMin<qsizetype>(cuantos, 1 << 30));
}

// The port that a socket has itself.
u_short puertoDe(SOCKET zocalo)
{
    sockaddr_in donde = {};
    int largo = sizeof donde;
    if (::getsockname(zocalo, reinterpret_cast<sockaddr *>(&donde), &largo) != 0)
        return 0;
    return ::ntohs(donde.sin_port);
}

} // namespace

namespace zocalos {

Zocalo oir(const char *direccion, int cola, int &puerto)
{
    const SOCKET oido = nuevo();
    const sockaddr_in donde = lugar(direccion, 0);
    if (::bind(oido, reinterpret_cast<const sockaddr *>(&donde), sizeof donde) != 0
        || ::listen(oido, cola) != 0) {
        cerrar(static_cast<Zocalo>(oido));
        return ninguno;
    }
    bloquear(oido, false);
    puerto = puertoDe(oido);
    return static_cast<Zocalo>(oido);
}

// An accepted socket takes after the one that listens, but for being inherited.
Zocalo aceptar(Zocalo oido)
{
    const SOCKET zocalo = ::accept(propio(oido), nullptr, nullptr);
    if (zocalo == INVALID_SOCKET)
        return ninguno;
    static_cast<void>( // a program started in this moment holds it open, and no more
        ::SetHandleInformation(reinterpret_cast<HANDLE>(zocalo), HANDLE_FLAG_INHERIT, 0));
    bloquear(zocalo, true);
    return static_cast<Zocalo>(zocalo);
}

Zocalo conectar(int puerto)
{
    const SOCKET zocalo = nuevo();
    const sockaddr_in donde = lugar("127.0.0.1", puerto);
    if (::connect(zocalo, reinterpret_cast<const sockaddr *>(&donde), sizeof donde) == 0)
        return static_cast<Zocalo>(zocalo);
    cerrar(static_cast<Zocalo>(zocalo));
    return ninguno;
}

void noBloquear(Zocalo zocalo)
{
    bloquear(propio(zocalo), false);
}

void noDemorar(Zocalo zocalo)
{
    const int si = 1;
    // Without it the bytes come later, and are the same.
    static_cast<void>(::setsockopt(propio(zocalo), IPPROTO_TCP, TCP_NODELAY,
                                   reinterpret_cast<const char *>(&si), sizeof si));
}

qsizetype recibir(Zocalo zocalo, char *donde, qsizetype cuantos)
{
    return movidos(::recv(propio(zocalo), donde, trozo(cuantos), 0));
}

qsizetype enviar(Zocalo zocalo, const char *bytes, qsizetype cuantos)
{
    return movidos(::send(propio(zocalo), bytes, trozo(cuantos), 0));
}

void terminarEnvio(Zocalo zocalo)
{
    // Fails when the peer has gone away, who reads no end then.
    static_cast<void>(::shutdown(propio(zocalo), SD_SEND));
}

void cerrar(Zocalo zocalo)
{
    // What it still had to say is lost in any case.
    static_cast<void>(::closesocket(propio(zocalo)));
}

bool esperar(std::span<Espera> esperas, int milisegundos)
{
    fd_set lectura = {};
    fd_set escritura = {};
    fd_set fallo = {};
    for (const Espera &una : esperas) {
        fd_set &conjunto = una.escribir ? escritura : lectura;
        conjunto.fd_array[conjunto.fd_count++] = propio(una.zocalo);
        fallo.fd_array[fallo.fd_count++] = propio(una.zocalo);
    }
    timeval tiempo = {milisegundos / 1000, milisegundos % 1000 * 1000};
    const bool hay =
        ::select(0, &lectura, &escritura, &fallo, milisegundos == sinLimite ? nullptr : &tiempo)
        > 0;
    for (Espera &una : esperas) {
        const SOCKET zocalo = propio(una.zocalo);
        una.lista = hay
                    && (__WSAFDIsSet(zocalo, una.escribir ? &escritura : &lectura) != 0
                        || __WSAFDIsSet(zocalo, &fallo) != 0);
    }
    return hay;
}

// There are no pipes that can be waited for beside sockets: it is a connection to itself.
Parada::Parada()
{
    int puerto = 0;
    const Zocalo oido = oir("127.0.0.1", 1, puerto);
    m_extremos[1] = conectar(puerto);
    Espera espera = {.zocalo = oido};
    if (oido == ninguno || m_extremos[1] == ninguno || !esperar({&espera, 1}, sinLimite))
        throw std::runtime_error("no sockets to stop by");
    m_extremos[0] = aceptar(oido);
    cerrar(oido);
    if (m_extremos[0] == ninguno)
        throw std::runtime_error("no sockets to stop by");
}

Parada::~Parada()
{
    cerrar(m_extremos[0]);
    cerrar(m_extremos[1]);
}

void Parada::dar()
{
    // Never read: every wait on the other end sees it, now and later.
    static_cast<void>(enviar(m_extremos[1], "x", 1));
}

} // namespace zocalos
