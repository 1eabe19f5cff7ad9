// SPDX-License-Identifier: MIT
// The reviewer's command line.
#pragma once

#include <QList>
#include <QString>

#include <filesystem>
#include <variant>
#include <vector>

namespace consola {

struct Revisar {
    enum class Forma { Texto, Json, Html };
    std::vector<std::filesystem::path> carpetas;
    Forma forma = Forma::Texto;
    std::filesystem::path html; // where the page goes
};
struct Copiar {
    std::filesystem::path carpeta;
    std::filesystem::path destino;
    bool reemplazar = false;
};
struct Comprobar {
    std::filesystem::path ruta;
};
struct Ayuda {};
struct Version {};
struct MalUso {
    QString motivo; // Spanish
};
using Orden = std::variant<Revisar, Copiar, Comprobar, Ayuda, Version, MalUso>;

// What the arguments ask for, those of main() with the program's name first. Paths stay the bytes
// that were given: an archive's folder may have any name.
Orden leer(int argc, const char *const *argv);

// The lines of --ayuda, in Spanish.
QString ayuda();

} // namespace consola
