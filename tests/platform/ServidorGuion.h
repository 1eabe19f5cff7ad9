// SPDX-License-Identifier: MIT
// A server whose every byte a test decides, where the demonstration school answers too well:
// each connection is played by the test's script, in a thread of its own.
#pragma once

#include "demostracion/zocalos.h"

#include <QByteArray>
#include <QList>
#include <QMutex>

#include <atomic>
#include <chrono>
#include <functional>
#include <list>
#include <thread>

class ServidorGuion {
public:
    // One accepted connection, in the hands of the script. Every wait ends when the server does.
    class Charla {
    public:
        const int numero;               // 0 for the first connection
        const zocalos::Zocalo conexion; // which does not block

        // The request's head, up to and with the empty line; less when the client goes away
        // before. It is noted in cabezas().
        QByteArray leerCabeza();
        // What has arrived, at least one byte; nothing when the client has gone away.
        QByteArray leer();
        void enviar(const QByteArray &bytes);
        // The reply ends here; the client may still send.
        void terminar();
        // Whether the client has closed the connection before the time is over.
        bool clienteCierra(std::chrono::milliseconds tiempo = std::chrono::seconds(10));
        // Waits for sockets, of which the connection may be one. False: the server ends, or the
        // time is over.
        bool esperar(std::span<zocalos::Espera> esperas, int milisegundos = zocalos::sinLimite);

    private:
        friend class ServidorGuion;
        Charla(ServidorGuion &servidor, int numero, zocalos::Zocalo conexion)
            : numero(numero), conexion(conexion), m_servidor(servidor)
        {
        }
        ServidorGuion &m_servidor;
    };

    using Guion = std::function<void(Charla &)>;

    // `direccion`: of this computer's, in figures.
    explicit ServidorGuion(const Guion &guion, const char *direccion = "127.0.0.1");
    // The same reply to every request, and the connection's end after it.
    explicit ServidorGuion(const QByteArray &respuesta);
    ~ServidorGuion();
    ServidorGuion(const ServidorGuion &) = delete;
    ServidorGuion &operator=(const ServidorGuion &) = delete;

    int puerto() const { return m_puerto; }
    QByteArray base() const; // "http://127.0.0.1:40123"
    int conexiones() const { return m_conexiones; }
    // The heads of all requests so far, in order of arrival.
    QList<QByteArray> cabezas() const;
    // Their request targets.
    QList<QByteArray> destinos() const;

private:
    void escuchar();
    void abrir();

    Guion m_guion;
    QByteArray m_direccion;
    zocalos::Parada m_parada;
    zocalos::Zocalo m_oido = zocalos::ninguno;
    int m_puerto = 0;
    std::atomic<int> m_conexiones = 0;
    mutable QMutex m_cerrojo; // guards the list
    QList<QByteArray> m_cabezas;
    std::list<std::thread> m_hilos; // the listener's alone, until it has ended
    std::thread m_oyente;
};
