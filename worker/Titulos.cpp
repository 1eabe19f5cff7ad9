// SPDX-License-Identifier: MIT
#include "worker/Titulos.h"

#include <filesystem>

namespace {

constexpr std::size_t largoMaximo = 255; // bytes

// At most so many bytes of a text, and no part of a character.
std::string principio(std::string texto, std::size_t cuantos)
{
    if (texto.size() <= cuantos)
        return texto;
    while (cuantos > 0 && (static_cast<unsigned char>(texto[cuantos]) & 0xc0U) == 0x80U)
        --cuantos;
    texto.resize(cuantos);
    return texto;
}

} // namespace

std::string Titulos::deTrabajo(const std::string &ruta, const std::string &dado)
{
    const std::string archivo = std::filesystem::path(ruta).filename().string();
    const std::string &titulo = dado.empty() ? archivo : dado;
    const auto deQuien = m_deQuien.try_emplace(titulo, ruta).first->second;
    if (deQuien == ruta)
        return titulo;
    const std::string detras = principio(" (" + archivo, largoMaximo - 1) + ')';
    return principio(titulo, largoMaximo - detras.size()) + detras;
}
