// SPDX-License-Identifier: MIT
// The worker's log: one line for each document, in the order of printing, and one more for a
// document that has to wait for the print server.
//
//     2010-11-26T15:04:05-0500 <TAB> /home/ana/Quorvela/.../1001.html <TAB> trabajo 12 en lote
//
// It is the only trace that a document leaves, since the window shows no message.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace registro {

// `texto` with everything that would break a line, or a terminal that shows it, written as \xNN:
// control characters, the backslash itself, and bytes that are no UTF-8.
std::string limpio(std::string_view texto);

// One line without its line feed. Local time.
std::string linea(std::chrono::system_clock::time_point cuando, std::string_view ruta,
                  std::string_view resultado);

// $XDG_STATE_HOME/parvanel/print.log, or the same below ~/.local/state. Empty when there is no
// home folder to put it in.
std::filesystem::path archivoDelUsuario();

} // namespace registro

class Registro {
public:
    // An empty path gives a log that keeps nothing.
    Registro(std::filesystem::path archivo, std::uintmax_t bytesMaximos);

    // Adds a line and its line feed. Before the file would pass its bound it becomes
    // `<archivo>.1`, in place of the one before it. A log that cannot be written is done without:
    // printing matters more.
    void anotar(std::string_view ruta, std::string_view resultado);

private:
    std::filesystem::path m_archivo;
    std::uintmax_t m_bytesMaximos;
};
