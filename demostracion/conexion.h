// SPDX-License-Identifier: MIT
// One accepted connection of the demonstration service, plain or encrypted.
#pragma once

#include "demostracion/canalTls.h"
#include "demostracion/zocalos.h"

#include <QByteArray>

#include <chrono>
#include <optional>

namespace demo {

class Conexion {
public:
    // Takes over the socket. `parada` becomes readable when the service stops, and every wait ends
    // then; `tls` is null for plain text. Both are borrowed, and must outlive the object.
    Conexion(zocalos::Zocalo zocalo, zocalos::Zocalo parada, ssl_ctx_st *tls);
    ~Conexion();
    Conexion(const Conexion &) = delete;
    Conexion &operator=(const Conexion &) = delete;

    // The TLS handshake (at once true without TLS). False: refused, broken off, or stopped.
    bool saludar();
    // A request's head, up to and with the empty line; what follows it is dropped. Empty when
    // the client went away, sent more than 64 KiB without an empty line, or the service stops.
    QByteArray leerCabecera();
    // False when the client went away or the service stops.
    bool enviar(const QByteArray &bytes);
    // Ends the connection in good order, so that nothing sent is lost on the way.
    void despedir();
    // False when the service stops before the time is over.
    bool esperar(std::chrono::milliseconds tiempo);
    // Returns when the client goes away or the service stops.
    void esperarFin();

private:
    bool legible(int milisegundos);
    bool escribible();
    bool lista(bool escribir, int milisegundos);
    bool reintentar(int resultado);
    qsizetype leer(char *donde, int cuanto);

    zocalos::Zocalo m_zocalo;
    zocalos::Zocalo m_parada;
    std::optional<CanalTls> m_tls;
};

} // namespace demo
