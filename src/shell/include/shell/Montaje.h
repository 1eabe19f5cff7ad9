// SPDX-License-Identifier: MIT
// The program put together: the service, the disk, the session and the window, each handed what it
// stands on. An application must exist. What differs between the program and what measures it is
// said by the caller.
#pragma once

#include "service/Entorno.h"

#include <QString>

#include <functional>
#include <memory>

class Form1;

class Montaje {
public:
    struct Pedido {
        QString ServiceBase; // scheme and host, without a trailing slash
        QString autoridades; // the file of trusted certificate authorities
        // Sleeps; it is given what is left of a pause once the window has been drawn in it.
        std::function<void(std::chrono::nanoseconds)> pausa;
        std::function<void()> terminar; // see Form1
    };
    explicit Montaje(const Pedido &pedido);
    ~Montaje();
    Montaje(const Montaje &) = delete;
    Montaje &operator=(const Montaje &) = delete;

    // Not yet shown. It lives as long as this object.
    Form1 &ventana();

private:
    class Interno;
    std::unique_ptr<Interno> d;
};
