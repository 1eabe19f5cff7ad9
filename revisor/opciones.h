// SPDX-License-Identifier: MIT
// The reviewer's command line.
#pragma once

#include <QList>
#include <QString>

#include <filesystem>
#include <string>
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

// What the arguments ask for, as platform/proceso.h gives them. Paths stay what was given: an
// archive's folder may have any name.
Orden leer(const std::vector<std::string> &argumentos);

// The lines of --ayuda, in Spanish.
QString ayuda();

} // namespace consola
