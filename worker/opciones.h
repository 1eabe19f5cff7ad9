// SPDX-License-Identifier: MIT
// The worker's command line. It serves tests and the curious: the window starts the worker without
// arguments.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

struct Opciones {
    std::chrono::seconds plazoDibujo{20};    // for one page to become a PDF
    std::chrono::seconds plazoServidor{15};  // for one conversation with the print server
    std::chrono::seconds plazoAusencia{300}; // for a print server that is away to come back

    bool operator==(const Opciones &) const = default;
};

// "--plazo-dibujo SECONDS", "--plazo-servidor SECONDS", "--plazo-ausencia SECONDS". Empty when the
// arguments make no sense.
std::optional<Opciones> leerOpciones(const std::vector<std::string> &argumentos);
