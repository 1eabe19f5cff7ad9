// SPDX-License-Identifier: MIT
#include "worker/opciones.h"

#include <charconv>

namespace {

std::optional<std::chrono::seconds> segundos(const std::string &texto)
{
    int valor = 0;
    const char *fin = texto.data() + texto.size();
    const auto leido = std::from_chars(texto.data(), fin, valor);
    if (leido.ec != std::errc() || leido.ptr != fin || valor <= 0)
        return {};
    return std::chrono::seconds(valor);
}

} // namespace

std::optional<Opciones> leerOpciones(const std::vector<std::string> &argumentos)
{
    Opciones opciones;
    for (std::size_t i = 0; i < argumentos.size(); i += 2) {
        const auto plazo = i + 1 < argumentos.size() ? segundos(argumentos[i + 1]) : std::nullopt;
        if (!plazo)
            return {};
        if (argumentos[i] == "--plazo-dibujo")
            opciones.plazoDibujo = *plazo;
        else if (argumentos[i] == "--plazo-servidor")
            opciones.plazoServidor = *plazo;
        else if (argumentos[i] == "--plazo-ausencia")
            opciones.plazoAusencia = *plazo;
        else
            return {};
    }
    return opciones;
}
