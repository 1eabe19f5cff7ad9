// SPDX-License-Identifier: MIT
// Images that pages of the archive share, stored in its image folder.
#pragma once

#include "pages/plantilla.h"

#include <span>

struct Entorno;

struct Imagen {
    Plantilla carpeta;   // of the service, with "/" at its end
    QStringView archivo; // its name there and in the archive
};

namespace imagenes {

// From the school's own folder on the service: "logo.png", "rector.png", "coordinacion.png".
consteval Imagen delColegio(QStringView archivo)
{
    return {u"{base}/images/colegios/{colegio}/", archivo};
}

// Shared by all schools: "promovido.png", "bg.gif" and the like.
consteval Imagen comun(QStringView archivo)
{
    return {u"{base}/images/", archivo};
}

} // namespace imagenes

// Fetches the images in their order. One that does not arrive is missing in the archive.
void descargarImagenes(Entorno &entorno, std::span<const Imagen> imagenes);
