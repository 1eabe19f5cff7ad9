// SPDX-License-Identifier: MIT
#include "ServidorGuion.h"

#include <QMutexLocker>

#include <array>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

QByteArray ServidorGuion::Charla::leerCabeza()
{
    QByteArray cabeza;
    while (!cabeza.contains("\r\n\r\n")) {
        const QByteArray mas = leer();
        if (mas.isEmpty())
            break;
        cabeza += mas;
    }
    const QMutexLocker guardia(&m_servidor.m_cerrojo);
    m_servidor.m_cabezas.append(cabeza);
    return cabeza;
}

QByteArray ServidorGuion::Charla::leer()
{
    std::array<char, 16384> trozo;
    const ssize_t leidos = ::recv(conexion, trozo.data(), trozo.size(), 0);
    return leidos > 0 ? QByteArray(trozo.data(), leidos) : QByteArray();
}

void ServidorGuion::Charla::enviar(const QByteArray &bytes)
{
    qsizetype enviados = 0;
    while (enviados < bytes.size()) {
        const ssize_t esta = ::send(conexion, bytes.constData() + enviados,
                                    static_cast<size_t>(bytes.size() - enviados), MSG_NOSIGNAL);
        if (esta <= 0)
            return; // the client has had enough
        enviados += esta;
    }
}

void ServidorGuion::Charla::terminar()
{
    ::shutdown(conexion, SHUT_WR);
}

bool ServidorGuion::Charla::clienteCierra(std::chrono::milliseconds tiempo)
{
    const auto fin = std::chrono::steady_clock::now() + tiempo;
    for (;;) {
        const auto resta = std::chrono::duration_cast<std::chrono::milliseconds>(
            fin - std::chrono::steady_clock::now());
        pollfd espera = {conexion, POLLIN, 0};
        if (resta.count() <= 0 || ::poll(&espera, 1, static_cast<int>(resta.count())) <= 0)
            return false;
        if (leer().isEmpty())
            return !m_servidor.m_fin;
    }
}

ServidorGuion::ServidorGuion(const Guion &guion, const char *direccion)
    : m_guion(guion), m_direccion(direccion)
{
    abrir();
}

ServidorGuion::ServidorGuion(const QByteArray &respuesta)
    : ServidorGuion([respuesta](Charla &charla) {
          charla.leerCabeza();
          charla.enviar(respuesta);
          charla.terminar();
          charla.clienteCierra();
      })
{
}

ServidorGuion::~ServidorGuion()
{
    m_fin = true;
    ::shutdown(m_oido, SHUT_RDWR);
    m_oyente.join();
    {
        const QMutexLocker guardia(&m_cerrojo);
        for (const int conexion : m_abiertas)
            ::shutdown(conexion, SHUT_RDWR);
    }
    for (std::thread &hilo : m_hilos)
        hilo.join();
    ::close(m_oido);
}

QByteArray ServidorGuion::base() const
{
    return "http://" + m_direccion + ':' + QByteArray::number(m_puerto);
}

QList<QByteArray> ServidorGuion::cabezas() const
{
    const QMutexLocker guardia(&m_cerrojo);
    return m_cabezas;
}

QList<QByteArray> ServidorGuion::destinos() const
{
    QList<QByteArray> destinos;
    for (const QByteArray &cabeza : cabezas())
        destinos.append(cabeza.split(' ').value(1));
    return destinos;
}

void ServidorGuion::abrir()
{
    m_oido = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in donde = {};
    donde.sin_family = AF_INET;
    donde.sin_addr.s_addr = ::inet_addr(m_direccion.constData());
    socklen_t largo = sizeof donde;
    auto *direccion = reinterpret_cast<sockaddr *>(&donde);
    if (::bind(m_oido, direccion, largo) != 0 || ::listen(m_oido, 64) != 0
        || ::getsockname(m_oido, direccion, &largo) != 0)
        qFatal("no loopback port for a scripted server");
    m_puerto = ntohs(donde.sin_port);
    m_oyente = std::thread([this] { escuchar(); });
}

void ServidorGuion::escuchar()
{
    while (!m_fin) {
        const int conexion = ::accept4(m_oido, nullptr, nullptr, SOCK_CLOEXEC);
        if (conexion < 0)
            continue;
        {
            const QMutexLocker guardia(&m_cerrojo);
            m_abiertas.append(conexion);
        }
        m_hilos.emplace_back([this, conexion, numero = m_conexiones++] {
            Charla charla(*this, numero, conexion);
            m_guion(charla);
            const QMutexLocker guardia(&m_cerrojo);
            m_abiertas.removeOne(conexion);
            ::close(conexion);
        });
    }
}
