// SPDX-License-Identifier: MIT
#include "demostracion/zocalos.h"

#include <cerrno>
#include <stdexcept>
#include <vector>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int descriptor(zocalos::Zocalo zocalo)
{
    return static_cast<int>(zocalo);
}

sockaddr_in lugar(const char *direccion, int puerto)
{
    sockaddr_in donde = {};
    donde.sin_family = AF_INET;
    donde.sin_port = htons(static_cast<uint16_t>(puerto));
    donde.sin_addr.s_addr = ::inet_addr(direccion);
    return donde;
}

// A call that a signal has come into between is as good as one that has nothing to move yet.
qsizetype movidos(ssize_t cuantos)
{
    return cuantos < 0 && (errno == EAGAIN || errno == EINTR) ? zocalos::ahoraNo : cuantos;
}

} // namespace

namespace zocalos {

Zocalo oir(const char *direccion, int cola, int &puerto)
{
    const int oido = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    sockaddr_in donde = lugar(direccion, 0);
    socklen_t largo = sizeof donde;
    auto *general = reinterpret_cast<sockaddr *>(&donde);
    if (::bind(oido, general, largo) != 0 || ::listen(oido, cola) != 0
        || ::getsockname(oido, general, &largo) != 0) {
        cerrar(oido);
        return ninguno;
    }
    puerto = ntohs(donde.sin_port);
    return oido;
}

Zocalo aceptar(Zocalo oido)
{
    return ::accept4(descriptor(oido), nullptr, nullptr, SOCK_CLOEXEC);
}

Zocalo conectar(int puerto)
{
    const int zocalo = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in donde = lugar("127.0.0.1", puerto);
    if (::connect(zocalo, reinterpret_cast<const sockaddr *>(&donde), sizeof donde) == 0)
        return zocalo;
    cerrar(zocalo);
    return ninguno;
}

void noBloquear(Zocalo zocalo)
{
    // Of an open socket it cannot fail.
    static_cast<void>(
        ::fcntl(descriptor(zocalo), F_SETFL, ::fcntl(descriptor(zocalo), F_GETFL) | O_NONBLOCK));
}

void noDemorar(Zocalo zocalo)
{
    const int si = 1;
    // Without it the bytes come later, and are the same.
    static_cast<void>(::setsockopt(descriptor(zocalo), IPPROTO_TCP, TCP_NODELAY, &si, sizeof si));
}

qsizetype recibir(Zocalo zocalo, char *donde, qsizetype cuantos)
{
    return movidos(::recv(descriptor(zocalo), donde, static_cast<size_t>(cuantos), 0));
}

qsizetype enviar(Zocalo zocalo, const char *bytes, qsizetype cuantos)
{
    return movidos(::send(descriptor(zocalo), bytes, static_cast<size_t>(cuantos), MSG_NOSIGNAL));
}

void terminarEnvio(Zocalo zocalo)
{
    // Fails when the peer has gone away, who reads no end then.
    static_cast<void>(::shutdown(descriptor(zocalo), SHUT_WR));
}

void cerrar(Zocalo zocalo)
{
    // What it still had to say is lost in any case.
    static_cast<void>(::close(descriptor(zocalo)));
}

bool esperar(std::span<Espera> esperas, int milisegundos)
{
    std::vector<pollfd> sucesos;
    sucesos.reserve(esperas.size());
    for (const Espera &una : esperas)
        sucesos.push_back(
            {descriptor(una.zocalo), static_cast<short>(una.escribir ? POLLOUT : POLLIN), 0});
    int cuantos = 0;
    do
        cuantos = ::poll(sucesos.data(), sucesos.size(), milisegundos);
    while (cuantos < 0 && errno == EINTR);
    for (std::size_t i = 0; i < esperas.size(); ++i)
        esperas[i].lista = cuantos > 0 && sucesos[i].revents != 0;
    return cuantos > 0;
}

Parada::Parada()
{
    int extremos[2] = {-1, -1};
    if (::pipe2(extremos, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe to stop by");
    m_extremos[0] = extremos[0];
    m_extremos[1] = extremos[1];
}

Parada::~Parada()
{
    cerrar(m_extremos[0]);
    cerrar(m_extremos[1]);
}

void Parada::dar()
{
    // Never read: every wait on the other end sees it, now and later.
    [[maybe_unused]] const ssize_t escrito = ::write(descriptor(m_extremos[1]), "x", 1);
}

} // namespace zocalos
