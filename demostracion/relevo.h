// The HTTP server proper: it listens on an inner loopback port and answers what the recorder in
// front of it hands on.
#pragma once

#include "demostracion/rutas.h"

#include <memory>

namespace demo {

class Relevo {
public:
    // Starts the server; throws std::runtime_error when no port can be had.
    explicit Relevo(Rutas &rutas);
    ~Relevo();

    // The whole reply, head and body, to a request for `destino`. Any thread. `comprimir` is
    // the client's Accept-Encoding; empty asks for the body as it is.
    QByteArray pedir(const QByteArray &metodo, const QByteArray &destino,
                     const QByteArray &comprimir) const;

private:
    struct Interno;
    std::unique_ptr<Interno> d;
};

} // namespace demo
