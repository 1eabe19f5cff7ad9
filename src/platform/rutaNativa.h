// SPDX-License-Identifier: MIT
// What of a path of drive C is handed to other programs: the same policy over each system's root.
#pragma once

#include "platform/rutaWindows.h"

#include <QString>

// The native path of `ruta`, which stays as it is where there is no drive and where it leads to
// none. `raiz` is a system's RaizArchivo.
template <typename Raiz>
QString rutaNativaDe(Raiz &raiz, const QString &ruta)
{
    if (!raiz.hayUnidad())
        return ruta;
    // A folder in the archive list is meant as it is listed, also when Windows would read its name
    // otherwise or refuse it.
    if (const auto enLista = rutaWindows::comoEnLista(ruta);
        enLista && raiz.esRaiz(enLista->madre)) {
        if (const auto nativa = raiz.rutaNativa(enLista->carpeta, enLista->nombres))
            return *nativa;
    }
    const auto nombres = rutaWindows::nombres(ruta);
    return nombres ? raiz.rutaNativa(*nombres) : ruta;
}
