// SPDX-License-Identifier: MIT
// The engine's one way into the network. The engine is told to send every connection through a
// proxy and to look no name up; this is that proxy, and it leads to the service and nowhere else.
// Whatever a page finds to call the world with (and an engine has more ways than its interceptor
// sees) ends here. The wire can be cut: what is still being fetched then fails at once.
#pragma once

#include "worker/render/Origen.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <set>
#include <string>

class Pasarela {
public:
    // Without an origin it refuses everybody. It serves in threads of its own until the process
    // ends; it must outlive them, hence is never destroyed.
    explicit Pasarela(const std::optional<Origen> &origen);
    ~Pasarela() = delete;
    Pasarela(const Pasarela &) = delete;
    Pasarela &operator=(const Pasarela &) = delete;

    // Its port on 127.0.0.1; 0 when it could not be had, and then there is no way out.
    std::uint16_t puerto() const { return m_puerto; }

    // Breaks off all that goes through it, and lets nothing more through until admitir().
    void cortar();
    void admitir();

private:
    void escuchar(int oyente);
    void encargar(int cliente);
    void atender(int cliente);
    void transportar(int cliente);

    std::string m_host; // empty: none is let through
    std::uint16_t m_puertoServicio = 0;
    bool m_cifrado = false;
    std::uint16_t m_puerto = 0;
    std::mutex m_cerrojo; // guards the two below
    bool m_cortada = false;
    std::set<int> m_clientes; // open connections of the engine
};
