// SPDX-License-Identifier: MIT
// Cuts a stream of bytes into lines, however the bytes happen to arrive.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class Lineas {
public:
    // A longer line is cut there and its rest thrown away, so that a peer that never ends a line
    // cannot fill the memory.
    explicit Lineas(std::size_t largoMaximo);

    // The lines that these bytes complete, without their line feed; empty lines are left out.
    std::vector<std::string> agregar(std::string_view bytes);

    // What came after the last line feed; asked for once, at the end of the stream.
    std::string resto();

private:
    std::string m_pendiente;
    std::size_t m_largoMaximo;
};
