// SPDX-License-Identifier: MIT
// A client that sends exactly the given bytes and returns exactly what comes back: no library
// stands between a test and the wire.
#pragma once

#include <QByteArray>
#include <QUrl>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

class ClienteCrudo {
public:
    explicit ClienteCrudo(const QString &base) : zocalo(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in donde{};
        donde.sin_family = AF_INET;
        donde.sin_port = htons(static_cast<uint16_t>(QUrl(base).port()));
        donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        conectado = connect(zocalo, reinterpret_cast<sockaddr *>(&donde), sizeof donde) == 0;
    }
    ~ClienteCrudo() { close(zocalo); }
    ClienteCrudo(const ClienteCrudo &) = delete;
    ClienteCrudo &operator=(const ClienteCrudo &) = delete;

    void enviar(const QByteArray &bytes)
    {
        const ssize_t n =
            send(zocalo, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL);
        conectado = conectado && n == bytes.size();
    }

    // Everything until the service ends the connection. `fin` tells whether it did, with a
    // proper end and not a reset, before the time was over.
    QByteArray recibir(int milisegundos = 10000)
    {
        QByteArray todo;
        char trozo[4096];
        pollfd espera{zocalo, POLLIN, 0};
        while (poll(&espera, 1, milisegundos) > 0) {
            const ssize_t n = recv(zocalo, trozo, sizeof trozo, 0);
            if (n <= 0) {
                fin = n == 0;
                return todo;
            }
            todo.append(trozo, n);
        }
        return todo;
    }

    bool conectado = false;
    bool fin = false;
    const int zocalo;
};

// One request on a connection of its own.
inline QByteArray pedir(const QString &base, const QByteArray &destino)
{
    ClienteCrudo cliente(base);
    cliente.enviar("GET " + destino + " HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n");
    return cliente.recibir();
}

inline QByteArray cuerpoDe(const QByteArray &respuesta)
{
    const qsizetype fin = respuesta.indexOf("\r\n\r\n");
    return fin < 0 ? QByteArray() : respuesta.mid(fin + 4);
}

inline QByteArray estadoDe(const QByteArray &respuesta)
{
    return respuesta.mid(9, 3);
}

// The announced length, or -1.
inline qsizetype largoDe(const QByteArray &respuesta)
{
    const QByteArray cabeza = respuesta.left(respuesta.indexOf("\r\n\r\n") + 2).toLower();
    const qsizetype donde = cabeza.indexOf("content-length: ");
    if (donde < 0)
        return -1;
    return cabeza.mid(donde + 16, cabeza.indexOf('\r', donde) - donde - 16).toLongLong();
}
