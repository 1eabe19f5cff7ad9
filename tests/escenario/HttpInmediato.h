// SPDX-License-Identifier: MIT
// The HTTP client of tests that count turns of the event loop. The real one turns it while it
// waits, and a yield of the procedure could not be told from that; this one answers within the
// call. A test executable has it by having HttpInmediato.cpp among its sources.
#pragma once

#include <QByteArray>

#include <functional>
#include <optional>

class HttpInmediato {
public:
    // The body of the reply to a request for the address; nothing: the request failed.
    using Responder = std::function<std::optional<QByteArray>(const QByteArray &direccion)>;

    // While it lives, it answers every request of the process, text and files alike. One at a
    // time; without one every request fails.
    explicit HttpInmediato(Responder responder);
    ~HttpInmediato();
    HttpInmediato(const HttpInmediato &) = delete;
    HttpInmediato &operator=(const HttpInmediato &) = delete;
};
