// SPDX-License-Identifier: MIT
// What stands in a folder: the list by which a copy is made and one is checked.
#pragma once

#include "revisor/copia.h"

#include <QByteArray>

#include <chrono>
#include <vector>

namespace copia {

struct Pieza {
    QByteArray nombre; // relative, with "/"; whatever bytes the disk has, UTF-8 on Windows
    std::filesystem::path ruta;
    bool esCarpeta = false;
    qint64 bytes = 0; // 0 for a folder
    std::filesystem::file_time_type escrito;

    bool operator==(const Pieza &) const = default;
};

struct Inventario {
    std::vector<Pieza> piezas; // by the bytes of their names
    QList<Omitido> omitidos;   // likewise
    QString fallo;             // the folder or file that could not be read; empty when all could
    bool detenido = false;
};

// All files and folders below `raiz`, no links followed. Links that only spell their neighbour
// otherwise are in neither list.
Inventario inventariar(const std::filesystem::path &raiz, const std::stop_token &parar);

// The name of a path as the disk has it, and one that can be shown.
QByteArray enBytes(const std::filesystem::path &ruta);
QString paraMostrar(const std::filesystem::path &ruta);

} // namespace copia
