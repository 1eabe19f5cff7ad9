// SPDX-License-Identifier: MIT
// Names of files and what pages call them. A name may hold any bytes; as text it is for showing
// and for comparing.
#pragma once

#include <QByteArray>
#include <QString>

#include <filesystem>
#include <optional>

namespace texto {

// As near as can be when the name is no valid text.
QString deRuta(const std::filesystem::path &ruta);

// Equal for all spellings that a system takes for the same that regards neither letter case nor
// how an accent is put together.
QString clave(const QString &nombre);

// The whole content of a regular file; nothing when it cannot be read or is longer than `maximo`
// bytes.
std::optional<QByteArray> leer(const std::filesystem::path &ruta, qint64 maximo);

} // namespace texto
