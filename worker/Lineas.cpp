// SPDX-License-Identifier: MIT
#include "worker/Lineas.h"

#include <algorithm>
#include <utility>

Lineas::Lineas(std::size_t largoMaximo) : largoMaximo_(largoMaximo) {}

std::vector<std::string> Lineas::agregar(std::string_view bytes)
{
    std::vector<std::string> completas;
    while (!bytes.empty()) {
        const auto fin = bytes.find('\n');
        const auto trozo = bytes.substr(0, fin);
        pendiente_.append(
            trozo.substr(0, std::min(trozo.size(), largoMaximo_ - pendiente_.size())));
        if (fin == std::string_view::npos)
            break;
        if (!pendiente_.empty())
            completas.push_back(resto());
        bytes.remove_prefix(fin + 1);
    }
    return completas;
}

std::string Lineas::resto()
{
    return std::exchange(pendiente_, {});
}
