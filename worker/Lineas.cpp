// SPDX-License-Identifier: MIT
#include "worker/Lineas.h"

#include <algorithm>
#include <utility>

Lineas::Lineas(std::size_t largoMaximo) : m_largoMaximo(largoMaximo) {}

std::vector<std::string> Lineas::agregar(std::string_view bytes)
{
    std::vector<std::string> completas;
    while (!bytes.empty()) {
        const auto fin = bytes.find('\n');
        const auto trozo = bytes.substr(0, fin);
        m_pendiente.append(
            trozo.substr(0, std::min(trozo.size(), m_largoMaximo - m_pendiente.size())));
        if (fin == std::string_view::npos)
            break;
        if (!m_pendiente.empty())
            completas.push_back(resto());
        bytes.remove_prefix(fin + 1);
    }
    return completas;
}

std::string Lineas::resto()
{
    return std::exchange(m_pendiente, {});
}
