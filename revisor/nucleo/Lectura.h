// SPDX-License-Identifier: MIT
// What one file says of itself, and what it says of others: all that is kept of it. Files are read
// one by one and by several threads; what only their comparison shows is the judgement's.
#pragma once

#include "Inventario.h"
#include "revisor/reglas.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

// A longer page is not read: the service's end at 64 MiB.
inline constexpr qint64 paginaMaxima = 80LL * 1024 * 1024;

struct Lectura {
    struct Senal {
        reglas::Cual regla;
        QString detalle{};
        int veces = 1; // in this file
    };
    // A file that the page links and that is not there.
    struct Ausencia {
        QString ruta;
        bool recurso; // the page shows or runs it
    };
    // What the page calls a student or a classroom.
    struct Nombrado {
        familias::Lugar lugar;
        QString nombre;
    };

    std::vector<Senal> senales;
    std::vector<int> hacia; // files that it links, each once
    std::vector<Ausencia> ausencias;
    QStringList fuera; // addresses that lead out of the archive, each once
    std::vector<Nombrado> nombrados;

    // Of a document that is a page of any sense, for its comparison with its siblings.
    bool comparable = false;
    bool conGuion = false;
    bool cierra = false;       // it ends in </html>, the script after it left out
    bool abreHtml = false;     // it has a tag <html> that wants closing
    bool diceError = false;    // its title or heading says so
    bool mencionaSuId = false; // the id in its name stands in its text
    std::uint64_t huella = 0;  // of its text, the script left out
    qint64 largo = 0;          // likewise
    QString titulo;
    std::vector<std::uint32_t> marcas;
};

// What the reading of any file needs to know of its archive. All borrowed.
struct Contexto {
    const std::filesystem::path &carpeta;
    const Inventario &inventario;
    QStringList nombres; // that the archive's folder has: links may lead out and in again by it
};

Lectura leerEntrada(const Entrada &entrada, const Contexto &contexto);
