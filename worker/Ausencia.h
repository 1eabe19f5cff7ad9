// SPDX-License-Identifier: MIT
// The print server's absence: how long it has lasted, when to look again, and which documents have
// waited long enough.
//
// A server that is restarted is away for a few seconds; one that is not there at all is waited for
// no longer than `plazo`. Each document has that long, counted from when it came or from when the
// server was first missed, whichever is later: documents wait side by side, so that a batch is
// given up within `plazo` of its last document, however many there are.
//
// Pure bookkeeping: the time comes in as an argument.
#pragma once

#include <chrono>
#include <optional>

class Ausencia {
public:
    using Momento = std::chrono::steady_clock::time_point;

    explicit Ausencia(std::chrono::seconds plazo) : m_plazo(plazo) {}

    // The server was asked and is not there. True when it was there, for all that was known.
    bool notar(Momento ahora);
    void terminar() { m_desde.reset(); }

    // When to ask next: in the past while the server is there.
    Momento proximoIntento() const { return m_desde ? m_intento : Momento::min(); }
    // Documents that came until then are given up.
    Momento vencidos(Momento ahora) const;

private:
    std::chrono::seconds m_plazo;
    std::optional<Momento> m_desde;
    Momento m_intento;
};
