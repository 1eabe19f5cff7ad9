// SPDX-License-Identifier: MIT
#include "platform/recorrido.h"

namespace fs = std::filesystem;

namespace recorrido {

namespace {

Entrada leida(const fs::directory_entry &una)
{
    std::error_code error;
    Entrada entrada;
    entrada.nombre = una.path().filename();
    // Nearly every disk tells the kind with the name, also of what cannot be looked at any further.
    if (una.is_symlink(error))
        entrada.clase = Clase::Enlace;
    else if (una.is_directory(error))
        entrada.clase = Clase::Carpeta;
    else if (una.is_regular_file(error))
        entrada.clase = Clase::Archivo;
    entrada.cierta = !error;
    if (entrada.clase == Clase::Archivo) {
        entrada.bytes = static_cast<qint64>(una.file_size(error));
        entrada.cierta = !error;
    }
    if (entrada.cierta && (entrada.clase == Clase::Archivo || entrada.clase == Clase::Carpeta)) {
        entrada.escrito = una.last_write_time(error);
        entrada.cierta = !error;
    }
    return entrada;
}

} // namespace

bool porCarpeta(const fs::path &carpeta, const std::function<bool(const Entrada &)> &cada)
{
    std::error_code error;
    fs::directory_iterator lista(carpeta, error);
    for (; !error && lista != fs::directory_iterator(); lista.increment(error)) {
        if (!cada(leida(*lista)))
            return true;
    }
    return !error;
}

fs::path paraAbrir(const fs::path &ruta)
{
    return ruta;
}

} // namespace recorrido
