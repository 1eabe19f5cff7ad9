// SPDX-License-Identifier: MIT
// A ZIP read once more, by what stands before each file. It names and describes each twice, there
// and in its list of contents, and programs differ in which of the two they go by.
#pragma once

#include <QByteArray>

#include <filesystem>
#include <optional>
#include <set>
#include <stop_token>

namespace copia {

// All names, folders with a "/" at their end, in the spelling of comparable(). Nothing when a file
// cannot be read so to its end, all together hold more than `tope` bytes, or `parar` was asked for.
std::optional<std::multiset<QByteArray>> leerOtraVez(const std::filesystem::path &zip, qint64 tope,
                                                     const std::stop_token &parar);

// A name with its accents composed, as this reading makes them.
QByteArray comparable(const QByteArray &nombre);

} // namespace copia
