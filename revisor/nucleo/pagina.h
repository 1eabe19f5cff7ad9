// SPDX-License-Identifier: MIT
// A page as a browser understands it: what it links, what it is called, what it is made of. Read
// with an HTML parser; no script of it runs.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct Enlace {
    enum Clase {
        Ancla,   // the user follows it: another page
        Recurso, // the page shows or runs it: an image, a script, a style
    };
    std::string direccion{}; // UTF-8, as it stands in the page
    Clase clase = Ancla;
    // Of an anchor: the name in its table row, given to the row's first one alone.
    QString rotulo{};
    QString propio{}; // of an anchor: its own first text
};

struct PaginaLeida {
    // Too deep or too tangled: nothing was read of it.
    bool enredada = false;
    // It has elements of its own and is not a bare text.
    bool conElementos = false;
    std::vector<Enlace> enlaces{};
    QString titulo{};
    QString encabezado{};
    // What it is made of, as numbers that pages of one kind have in common; sorted, no two equal.
    std::vector<std::uint32_t> marcas{};
};

// `bytes` are of Windows-1252 unless the page says otherwise. Callable from several threads at
// once. A page of any shape comes to an end: one that would need more than a fixed share of time
// or memory comes back as `enredada`.
PaginaLeida leerPagina(const QByteArray &bytes);
