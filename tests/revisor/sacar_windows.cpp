// SPDX-License-Identifier: MIT
// Every Windows has a program for it, and Wine has none: it is done here by the library that the
// copy was not written with. Other people's programs are asked where the programs are driven from
// outside.
#include "revisor/sacar.h"

#include "revisor/nombres.h"

#include <array>
#include <chrono>
#include <fstream>
#include <memory>

#include <zip.h>

namespace fs = std::filesystem;

namespace {

bool sacarUno(zip_t *zip, zip_uint64_t indice, const fs::path &ruta)
{
    const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> entrada(
        zip_fopen_index(zip, indice, 0), zip_fclose);
    if (!entrada)
        return false;
    fs::create_directories(ruta.parent_path());
    std::ofstream archivo(ruta, std::ios::binary);
    std::array<char, 65536> bloque = {};
    zip_int64_t cuantos = 0;
    while ((cuantos = zip_fread(entrada.get(), bloque.data(), bloque.size())) > 0)
        archivo.write(bloque.data(), cuantos);
    archivo.close();
    return cuantos == 0 && archivo;
}

} // namespace

bool sacarZip(const fs::path &zip, const fs::path &carpeta)
{
    const std::unique_ptr<zip_t, decltype(&zip_discard)> todo(
        zip_open(textoDe(zip).toUtf8().constData(), ZIP_RDONLY, nullptr), zip_discard);
    const zip_int64_t cuantas = todo ? zip_get_num_entries(todo.get(), 0) : -1;
    bool bien = cuantas >= 0;
    for (zip_int64_t i = 0; i < cuantas && bien; ++i) {
        const auto indice = static_cast<zip_uint64_t>(i);
        zip_stat_t datos;
        bien = zip_stat_index(todo.get(), indice, ZIP_FL_ENC_RAW, &datos) == 0;
        const QByteArray nombre = bien ? datos.name : "";
        const fs::path ruta = carpeta / rutaDe(nombre);
        if (nombre.endsWith('/')) {
            fs::create_directories(ruta);
        } else if (bien) {
            bien = sacarUno(todo.get(), indice, ruta);
            fs::last_write_time(ruta, fs::file_time_type::clock::from_sys(
                                          std::chrono::system_clock::from_time_t(datos.mtime)));
        }
    }
    return bien;
}
