// SPDX-License-Identifier: MIT
// Paths out of texts and bytes, and texts out of paths, alike where names are bytes and where they
// are wide: a path made of a narrow string would go by the encoding of the process.
#pragma once

#include <QByteArray>
#include <QString>

#include <filesystem>

// Bytes that are no UTF-8 stay as they are where the system has such names.
inline std::filesystem::path rutaDe(const QByteArray &nombre)
{
    return {std::u8string(nombre.begin(), nombre.end())};
}

inline std::filesystem::path rutaDe(const QString &nombre)
{
    return rutaDe(nombre.toUtf8());
}

// With "/".
inline QString textoDe(const std::filesystem::path &ruta)
{
    const std::u8string nombre = ruta.generic_u8string();
    return QString::fromUtf8(reinterpret_cast<const char *>(nombre.data()),
                             static_cast<qsizetype>(nombre.size()));
}
