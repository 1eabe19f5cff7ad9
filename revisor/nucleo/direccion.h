// SPDX-License-Identifier: MIT
// An address in a page, read as a browser reads it in a page that was opened from the disk.
#pragma once

#include <QString>
#include <QStringList>

#include <string_view>

struct Direccion {
    enum Clase {
        Nada,     // the page itself, mail, a script, data: nothing on the disk is meant
        EnLaRed,  // another computer: `completa` is the whole address
        Fuera,    // an absolute place on this computer or its network
        Relativa, // a place beside the page
    };
    Clase clase = Nada;
    QString completa{};
    // Of a relative one: the names from the archive on, after going `arriba` folders out of it. A
    // last name that is empty means a folder.
    int arriba = 0;
    QStringList nombres{};
    // Its percent signs stand for bytes of Windows-1252: only Windows reads them so.
    bool deWindows = false;
};

// `escrita` is UTF-8 as it stands in the page, its entities replaced; `carpeta` are the names that
// lead from the archive to the page's own folder.
Direccion leerDireccion(std::string_view escrita, const QStringList &carpeta);
