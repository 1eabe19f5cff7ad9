// SPDX-License-Identifier: MIT
#include "Tunel.h"

#include <QMutexLocker>

#include <array>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int conectar(int puerto)
{
    const int conexion = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in donde = {};
    donde.sin_family = AF_INET;
    donde.sin_port = htons(static_cast<uint16_t>(puerto));
    donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(conexion, reinterpret_cast<sockaddr *>(&donde), sizeof donde) == 0)
        return conexion;
    ::close(conexion);
    return -1;
}

// What is there to read, sent on and noted. False: one end has gone away.
bool pasar(int desde, int hacia, QByteArray &anotado)
{
    std::array<char, 16384> trozo;
    const ssize_t leidos = ::recv(desde, trozo.data(), trozo.size(), 0);
    if (leidos <= 0)
        return false;
    anotado.append(trozo.data(), leidos);
    return ::send(hacia, trozo.data(), static_cast<size_t>(leidos), MSG_NOSIGNAL) == leidos;
}

} // namespace

Tunel::Tunel(int puerto)
    : m_servidor([this, puerto](ServidorGuion::Charla &charla) { servir(charla, puerto); })
{
}

QList<Tunel::Paso> Tunel::pasos() const
{
    const QMutexLocker guardia(&m_cerrojo);
    return m_pasos;
}

void Tunel::servir(ServidorGuion::Charla &charla, int puerto)
{
    Paso paso;
    paso.peticion = charla.leerCabeza();
    const int servidor = conectar(puerto);
    if (servidor < 0)
        return;
    charla.enviar("HTTP/1.1 200 Connection established\r\n\r\n");
    bool sigue = true;
    while (sigue) {
        std::array<pollfd, 2> esperas = {{{charla.conexion, POLLIN, 0}, {servidor, POLLIN, 0}}};
        if (::poll(esperas.data(), esperas.size(), -1) < 0)
            continue;
        if (esperas[0].revents != 0)
            sigue = pasar(charla.conexion, servidor, paso.delCliente);
        if (sigue && esperas[1].revents != 0)
            sigue = pasar(servidor, charla.conexion, paso.delServidor);
    }
    ::close(servidor);
    const QMutexLocker guardia(&m_cerrojo);
    m_pasos.append(paso);
}
