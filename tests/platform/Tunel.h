// SPDX-License-Identifier: MIT
// A proxy that leads every tunnel to one server, whatever name was asked for, and keeps the bytes
// that went through: a service can be reached by a name that is not its own, and a greeting that
// the two ends exchange before encryption can be looked at.
#pragma once

#include "ServidorGuion.h"

#include <QByteArray>
#include <QList>
#include <QMutex>

class Tunel {
public:
    struct Paso {
        QByteArray peticion; // the client's request to the proxy
        QByteArray delCliente;
        QByteArray delServidor;
    };

    // `puerto`: of the server on loopback.
    explicit Tunel(int puerto);

    QByteArray direccion() const { return m_servidor.base(); }
    // The tunnels that have ended, in order of their end.
    QList<Paso> pasos() const;

private:
    void servir(ServidorGuion::Charla &charla, int puerto);

    mutable QMutex m_cerrojo;
    QList<Paso> m_pasos;
    ServidorGuion m_servidor;
};
