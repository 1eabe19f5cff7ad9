// SPDX-License-Identifier: MIT
#include "rutas.h"

#include <string_view>

std::filesystem::path rutas::deTexto(const QString &ruta)
{
    const QByteArray bytes = ruta.toUtf8();
    return {std::u8string_view(reinterpret_cast<const char8_t *>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()))};
}

QString rutas::enTexto(const std::filesystem::path &ruta)
{
    const std::u8string bytes = ruta.generic_u8string();
    return QString::fromUtf8(reinterpret_cast<const char *>(bytes.data()),
                             static_cast<qsizetype>(bytes.size()));
}
