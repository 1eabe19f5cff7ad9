// SPDX-License-Identifier: MIT
#include "imagenesDeFuera.h"

#include <algorithm>
#include <csetjmp>
#include <cstring>
#include <vector>

#include <png.h>

namespace {

void leer(png_structp imagen, png_bytep destino, std::size_t largo)
{
    auto *origen = static_cast<BytesDeImagen *>(png_get_io_ptr(imagen));
    if (largo > origen->quedan)
        png_error(imagen, "early end");
    std::memcpy(destino, origen->bytes, largo);
    origen->bytes += largo;
    origen->quedan -= largo;
}

[[noreturn]] void salir(png_structp imagen, png_const_charp)
{
    png_longjmp(imagen, 1);
}

// Ancillary parts that are out of order, an unusual colour profile: nothing that is seen.
void callar(png_structp, png_const_charp) {}

EstadoImagen decodificar(png_structp imagen, png_infop datos, std::vector<png_byte> &linea)
{
    png_read_info(imagen, datos);
    if (demasiadoGrande(png_get_image_width(imagen, datos), png_get_image_height(imagen, datos)))
        return EstadoImagen::Enorme;
    const int recorridos = png_set_interlace_handling(imagen);
    png_read_update_info(imagen, datos);
    linea.resize(png_get_rowbytes(imagen, datos));
    const png_uint_32 alto = png_get_image_height(imagen, datos);
    for (int recorrido = 0; recorrido < recorridos; ++recorrido) {
        for (png_uint_32 y = 0; y < alto; ++y)
            png_read_row(imagen, linea.data(), nullptr);
    }
    png_read_end(imagen, nullptr);
    return EstadoImagen::Buena;
}

} // namespace

EstadoImagen estadoPng(const QByteArray &bytes)
{
    BytesDeImagen origen{bytes.constData(), static_cast<std::size_t>(bytes.size())};
    std::vector<png_byte> linea; // outlives a way out of the library
    png_structp imagen = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, salir, callar);
    png_infop datos = imagen != nullptr ? png_create_info_struct(imagen) : nullptr;
    volatile auto estado = EstadoImagen::Danada;
    if (datos != nullptr && setjmp(png_jmpbuf(imagen)) == 0) { // NOLINT(cert-err52-cpp)
        png_set_read_fn(imagen, &origen, leer);
        png_set_crc_action(imagen, PNG_CRC_ERROR_QUIT, PNG_CRC_WARN_DISCARD);
        png_set_user_limits(imagen, 0x7fffffff, 0x7fffffff);
        estado = decodificar(imagen, datos, linea);
    }
    png_destroy_read_struct(&imagen, &datos, nullptr);
    return estado;
}
