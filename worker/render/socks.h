// SPDX-License-Identifier: MIT
// The little of SOCKS 5 (RFC 1928) that the engine speaks to its proxy: no authentication, CONNECT,
// and the host by its name, which the engine therefore need not look up.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace socks {

struct Destino {
    std::string host; // in lower case; an IPv6 address without brackets
    std::uint16_t puerto = 0;
};

enum class Respuesta : char { Hecho = 0, Prohibido = 2, Inalcanzable = 4 };

// Greets the one at the other end and gives where it wants to be led. Empty when it speaks
// anything else, wants anything else, or has gone.
std::optional<Destino> pedido(int cliente);

// False when the other end has gone.
bool responder(int cliente, Respuesta respuesta);

// Writes all of it. False when the other end has gone.
bool escribir(int cliente, std::string_view datos);

} // namespace socks
