// SPDX-License-Identifier: MIT
// One synchronous HTTP GET at a time for its caller, while the window's event loop goes on
// turning: requests that handlers start from within a wait are served as well, and whatever turns
// the loop, the innermost wait or a message box, moves all of them on. Each returns to its caller
// only when those above it have; what became of it meanwhile stays as it is. So many waits within
// one another are meant to be few, and are never more than `peticionesMaximas`.
//
// It needs an application's event loop in its own thread, and must outlive every call on it: no
// handler that runs within a wait may destroy it. What a call is given by reference is borrowed
// until it returns, so that no such handler may change that either: the headers are sent again at
// each redirect.
//
// HTTP/1.1, each request over a connection of its own, sent once. Redirects are followed (10 at
// the most, never from https to http), cookies live in memory for the life of the object, gzip
// and deflate are accepted and decoded, certificates and host names are always verified.
//
// Once the service has answered, a request that finds this computer without a way out (no route,
// an interface down, a name that cannot be looked up for now) tries again until the time for its
// connection is over; nothing has been sent then. Every other failure is the request's at once.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QList>
#include <QPair>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

class HttpClient {
public:
    using Cabeceras = QList<QPair<QByteArray, QByteArray>>;

    // The window needs two. One beyond this many, started from within them, fails at once.
    static constexpr int peticionesMaximas = 8;

    struct Limites {
        // To make a connection, encryption and a proxy's consent included, in all attempts.
        std::chrono::milliseconds conexion = std::chrono::seconds(60);
        std::chrono::milliseconds reintento = std::chrono::seconds(1);  // between two attempts
        std::chrono::milliseconds silencio = std::chrono::seconds(120); // without a byte moved
        // Bytes, decoded: of a body in memory, and of a redirect's own body, a download's too.
        qint64 texto = qint64(64) * 1024 * 1024;
    };

    // `autoridades` is the native path of the one file of trusted certificate authorities (PEM).
    // Empty where the system keeps them itself and in no file: those that the system trusts.
    explicit HttpClient(const QString &autoridades = autoridadesDelSistema());
    HttpClient(const QString &autoridades, const Limites &limites);
    ~HttpClient();
    HttpClient(const HttpClient &) = delete;
    HttpClient &operator=(const HttpClient &) = delete;

    // The body of the reply, of any HTTP status; nothing when the request failed: no connection,
    // no HTTP reply, a body that broke off or cannot be decoded, an address that cannot be read, a
    // limit passed, or something that the request needs could not be had.
    // `direccion` holds the bytes of the whole address as the caller built it. A byte that cannot
    // stand in a request target becomes %XX on the wire; nothing else is escaped or normalised
    // (the address that a redirect names is made absolute first).
    std::optional<QByteArray> get(const QByteArray &direccion, const Cabeceras &cabeceras);

    // The same straight into an open device, without further headers. False when the request
    // failed, its status is 400 or more, or a byte could not be written; `destino` may then hold
    // a part of the body.
    bool getArchivo(const QByteArray &direccion, QIODevice &destino);

    // Empty on Windows, which keeps them in a store of its own.
    static QString autoridadesDelSistema();

    class Interno;

private:
    std::unique_ptr<Interno> d;
};
