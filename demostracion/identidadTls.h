// SPDX-License-Identifier: MIT
// The TLS identity of one run of the demonstration service: a certificate authority made for
// the occasion, and a certificate of it for 127.0.0.1 and localhost. Nothing is kept on disk.
#pragma once

#include <QByteArray>

#include <memory>

struct ssl_ctx_st;

namespace demo {

struct BorraContexto {
    void operator()(ssl_ctx_st *contexto) const;
};

struct IdentidadTls {
    std::unique_ptr<ssl_ctx_st, BorraContexto> contexto; // of a server, TLS 1.2 or newer
    QByteArray autoridad;                                // PEM
};

// When the service's certificate is good.
enum class Vigencia { Ahora, Pasada, Futura };

// Throws std::runtime_error when the library cannot make it.
IdentidadTls crearIdentidadTls(Vigencia vigencia = Vigencia::Ahora);

} // namespace demo
