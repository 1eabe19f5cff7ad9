// SPDX-License-Identifier: MIT
#include "pages/imagenes.h"
#include "pages/rutasArchivo.h"
#include "service/archivos.h"

void descargarImagenes(Entorno &entorno, std::span<const Imagen> imagenes)
{
    const Valores valores = rutasArchivo::valores(entorno);
    for (const Imagen &imagen : imagenes) {
        const QString archivo = imagen.archivo.toString();
        [[maybe_unused]] const bool llego =
            descargarArchivo(entorno, completar(imagen.carpeta, valores) + archivo,
                             valores.valor(Lugar::Imagenes) + archivo);
    }
}
