// HTTP messages as the recorder reads and writes them.
#pragma once

#include "demostracion/ServicioDemo.h"

namespace demo {

struct Partes {
    QByteArray cabecera; // without Content-Length, without the empty line
    QByteArray cuerpo;
};

// A request's head, up to and with the empty line, taken apart.
Peticion leida(const QByteArray &bytes);
// A header's value, whatever its letter case; empty when there is none.
QByteArray valor(const Peticion &peticion, const QByteArray &nombre);

// A whole reply. `mas`: further header lines, each with its line end.
QByteArray respuesta(int estado, const QByteArray &cuerpo, const QByteArray &mas = {});
Partes separar(const QByteArray &respuesta);
// A reply that announces `largo` bytes and carries `cuerpo`.
QByteArray conLargo(const Partes &partes, qsizetype largo, const QByteArray &cuerpo);
// Bytes that no client can take for a reply.
QByteArray basura();

} // namespace demo
