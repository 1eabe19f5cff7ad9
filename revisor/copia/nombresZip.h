// SPDX-License-Identifier: MIT
// Names in the terms of libarchive. It goes by the encoding of the process, which on most systems
// is UTF-8 and leaves a name's bytes as they are; where names are wide it cannot be UTF-8, and is
// given wide ones.
#pragma once

#include <QByteArray>

#include <cstddef>
#include <filesystem>
#include <optional>
#include <type_traits>

struct archive;
struct archive_entry;

namespace copia::nombresZip {

constexpr bool anchos = std::is_same_v<std::filesystem::path::value_type, wchar_t>;

// A ZIP that is to be written marks its names as UTF-8. Before it is opened; false when the library
// does not know how.
bool marcar(archive *zip);

// Names are UTF-8 with "/". Nothing comes out when the entry has none.
void poner(archive_entry *entrada, const QByteArray &nombre);
std::optional<QByteArray> de(archive_entry *entrada);

// One of libarchive's results.
int abrir(archive *zip, const std::filesystem::path &ruta, std::size_t bloque);

} // namespace copia::nombresZip
