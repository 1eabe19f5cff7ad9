// SPDX-License-Identifier: MIT
// HTTP messages as the service reads and writes them.
#pragma once

#include "demostracion/ServicioDemo.h"
#include "demostracion/rutas.h"

namespace demo {

struct Partes {
    QByteArray cabecera; // without Content-Length, without the empty line
    QByteArray cuerpo;
};

// A request's head, up to and with the empty line, taken apart.
Peticion leida(const QByteArray &bytes);
// A header's value, whatever its letter case; empty when there is none.
QByteArray valor(const Peticion &peticion, const QByteArray &nombre);

// The whole reply to a request for an address. The body is left out for HEAD, and compressed with
// gzip when it is text, not empty, and `acepta`, the client's Accept-Encoding, names that.
QByteArray enMensaje(const Respuesta &respuesta, const QByteArray &metodo,
                     const QByteArray &acepta);
// A whole reply that says something of its own. `mas`: further header lines, each with its line
// end.
QByteArray respuesta(int estado, const QByteArray &cuerpo, const QByteArray &mas = {});
Partes separar(const QByteArray &respuesta);
// A reply that announces `largo` bytes and carries `cuerpo`.
QByteArray conLargo(const Partes &partes, qsizetype largo, const QByteArray &cuerpo);
// Bytes that no client can take for a reply.
QByteArray basura();

} // namespace demo
