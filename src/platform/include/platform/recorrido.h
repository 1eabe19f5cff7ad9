// SPDX-License-Identifier: MIT
// Going through folders, for whoever only reads them and is to stay in them, however long the paths
// become.
#pragma once

#include <QtGlobal>

#include <filesystem>
#include <functional>

namespace recorrido {

enum class Clase {
    Archivo,
    Carpeta,
    Enlace, // leads to another place, whatever kind of link the system has
    Otra,   // a device, a pipe, or what the system does not say
};

struct Entrada {
    std::filesystem::path nombre; // its own
    Clase clase = Clase::Otra;
    qint64 bytes = 0; // of a file; one that is only fetched when it is read has them too
    std::filesystem::file_time_type escrito{}; // of files and folders
    bool cierta = true; // false when not all of it could be had: it may be gone
};

// Calls `cada` with each entry of the folder, in no order, until that says false. False when they
// could not all be had; a folder that is not there has none to be had.
bool porCarpeta(const std::filesystem::path &carpeta,
                const std::function<bool(const Entrada &)> &cada);

// By which path the system's own calls open a file: another one where there is a limit to the
// length of those that people write.
std::filesystem::path paraAbrir(const std::filesystem::path &ruta);

} // namespace recorrido
