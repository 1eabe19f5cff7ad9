// SPDX-License-Identifier: MIT
// Reading an address for the wire: plain functions of its bytes.
#pragma once

#include <QByteArray>

#include <optional>

namespace direccionHttp {

// What names the server, and the target asked of it.
struct Partes {
    QByteArray servidor; // "https://host:port"
    QByteArray destino;  // "/path?query", as it goes over the wire
};

Partes separar(const QByteArray &direccion);

// Whether the address asks for TLS.
bool esSegura(const QByteArray &direccion);

// Where a redirect from `desde` leads, absolute and without its fragment. Its bytes stay as they
// came but for those that cannot stand in a request target. Nothing for an address that cannot be
// read (it is never guessed at), or of another protocol than http and https.
std::optional<QByteArray> direccionDe(const QByteArray &lugar, const QByteArray &desde);

// A byte that cannot stand in a request target (a blank, a control character, one above 127, and
// " # < > \ ^ ` { | }) becomes %XX; all others stay.
QByteArray destinoEnLinea(const QByteArray &destino);

// Whether a reply of this status leads to another address, when it names one.
bool esRedireccion(long estado);

} // namespace direccionHttp
