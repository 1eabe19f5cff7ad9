// SPDX-License-Identifier: MIT
// A client that sends exactly the given bytes and returns exactly what comes back: no library
// stands between a test and the wire.
#pragma once

#include "demostracion/zocalos.h"

#include <QByteArray>
#include <QUrl>

class ClienteCrudo {
public:
    explicit ClienteCrudo(const QString &base)
        : zocalo(zocalos::conectar(QUrl(base).port())), conectado(zocalo != zocalos::ninguno)
    {
    }
    ~ClienteCrudo() { zocalos::cerrar(zocalo); }
    ClienteCrudo(const ClienteCrudo &) = delete;
    ClienteCrudo &operator=(const ClienteCrudo &) = delete;

    void enviar(const QByteArray &bytes)
    {
        const qsizetype n = zocalos::enviar(zocalo, bytes.constData(), bytes.size());
        conectado = conectado && n == bytes.size();
    }

    // Everything until the service ends the connection. `fin` tells whether it did, with a
    // proper end and not a reset, before the time was over.
    QByteArray recibir(int milisegundos = 10000)
    {
        QByteArray todo;
        char trozo[4096];
        zocalos::Espera espera = {.zocalo = zocalo};
        while (zocalos::esperar({&espera, 1}, milisegundos)) {
            const qsizetype n = zocalos::recibir(zocalo, trozo, sizeof trozo);
            if (n <= 0) {
                fin = n == 0;
                return todo;
            }
            todo.append(trozo, n);
        }
        return todo;
    }

    const zocalos::Zocalo zocalo;
    bool conectado;
    bool fin = false;
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
