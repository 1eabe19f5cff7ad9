// SPDX-License-Identifier: MIT
// The body of a reply as it was before its sender encoded it. Decoded here and not by the library,
// which takes a compressed stream that breaks off for a whole one.
#pragma once

#include <QByteArray>
#include <QList>

#include <functional>
#include <memory>
#include <vector>

class DecodificacionHttp {
public:
    // Takes a piece of the decoded body, as it comes. False: no more is wanted.
    using Recibir = std::function<bool(const char *, qsizetype)>;

    // `codificaciones` as the reply's headers name them, in the order in which the sender applied
    // them. "gzip" ("x-gzip"), "deflate" (a bare stream without its envelope too) and "identity"
    // ("none") are known, in upper case as well. What `recibir` refers to must outlive the object.
    DecodificacionHttp(const QList<QByteArray> &codificaciones, const Recibir &recibir);
    ~DecodificacionHttp();
    DecodificacionHttp(const DecodificacionHttp &) = delete;
    DecodificacionHttp &operator=(const DecodificacionHttp &) = delete;

    // A piece of the body as it came. False: it cannot be decoded (an encoding that is not known,
    // a damaged stream, bytes after its end), it swells beyond all measure, or the receiver wants
    // no more.
    bool pasar(const char *datos, qsizetype cuantos);
    // Whether every stream that has begun has come to its own end. One without a byte has not
    // begun: an empty body is whole in any encoding.
    bool entera() const;

    class Etapa;

private:
    Recibir m_entrada;
    qsizetype m_salida = 0;
    std::vector<std::unique_ptr<Etapa>> m_etapas;
};
