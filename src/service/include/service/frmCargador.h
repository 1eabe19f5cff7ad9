// SPDX-License-Identifier: MIT
// The loader: every text request of the program goes through its one operation, conectar. It is
// a window that is never seen, so it is none here; what is left of the window are its timers.
#pragma once

#include "service/Entorno.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <cstdint>

class frmCargador : public QObject {
    Q_OBJECT
public:
    // `entorno` is borrowed and must outlive the loader, which one procedure makes for itself and
    // which must outlive each of its own requests.
    explicit frmCargador(Entorno &entorno);

    // Sends one GET and returns the body of the reply, bytes of the ANSI code page, exactly as
    // received. `url` is the whole address without a query,
    // `parametros` the query without "?", both sent as they stand; `usarAzar` puts a
    // cache-busting number in front of the query.
    // A reply of fewer than 8 bytes that is neither "SI" nor "NO" is asked for again, 4
    // times in all. There is no failure to return: a request that never got through leaves the
    // reply before it, at first the empty one, and the caller judges from the reply.
    QByteArray traer(const QString &url, const QString &parametros, bool usarAzar);

    // The same as text, one character for each byte.
    QString conectar(const QString &url, const QString &parametros, bool usarAzar);

    // Whether the loader is open, and the ticks of its watchdog since the last retry.
    bool abierto() const { return Timer1.isActive(); }
    std::int16_t ticks() const { return m_ticks; }

    // The address of one request. A query of 1 or 2 characters is dropped, but for the
    // cache-buster, which always comes first and leaves a trailing "&" with an empty query.
    static QString direccionDe(const QString &url, const QString &parametros, bool usarAzar,
                               std::int32_t azar);

    // Whether a request that has had this reply at its nth try is sent once more: the reply is too
    // short to be a page, is not one of the service's own words "SI" and "NO", and there have been
    // fewer than 4 tries.
    static bool pedirDeNuevo(const QByteArray &respuesta, int intento);

private:
    void abrir();
    void cerrar();
    void Timer1_Timer();
    void Timer2_Timer();

    Entorno &m_entorno;
    QTimer Timer1{this}; // watchdog, once a second
    QTimer Timer2{this}; // keeps the event loop turning
    std::int16_t m_ticks = 0;
};
