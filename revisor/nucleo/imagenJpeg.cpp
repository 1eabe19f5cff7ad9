// SPDX-License-Identifier: MIT
#include "imagenesDeFuera.h"

#include <csetjmp>
#include <cstdio>
#include <vector>

#include <jerror.h>
#include <jpeglib.h>

namespace {

constexpr long memoriaMaxima = 400L * 1024 * 1024;
constexpr int recorridosMaximos = 500; // of a progressive image; real ones have about ten

// The library's records with the way out of its functions. It must stand first.
struct Errores {
    jpeg_error_mgr propios;
    std::jmp_buf salida;
};

[[noreturn]] void salir(j_common_ptr imagen)
{
    std::longjmp(reinterpret_cast<Errores *>(imagen->err)->salida, 1); // NOLINT
}

// A warning is what the library says of an image that ends early or does not decode. Bytes before a
// marker are passed over as every viewer does.
void mensaje(j_common_ptr imagen, int nivel)
{
    if (nivel < 0 && imagen->err->msg_code != JWRN_EXTRANEOUS_DATA)
        salir(imagen);
}

void callar(j_common_ptr) {}

void vigilar(j_common_ptr imagen)
{
    if (reinterpret_cast<j_decompress_ptr>(imagen)->input_scan_number > recorridosMaximos)
        salir(imagen);
}

// Decodes every coefficient; of the picture itself an eighth is enough.
EstadoImagen decodificar(jpeg_decompress_struct &imagen, std::vector<JSAMPLE> &linea)
{
    if (jpeg_read_header(&imagen, TRUE) != JPEG_HEADER_OK)
        return EstadoImagen::Danada;
    if (demasiadoGrande(imagen.image_width, imagen.image_height))
        return EstadoImagen::Enorme;
    imagen.scale_num = 1;
    imagen.scale_denom = 8;
    imagen.dct_method = JDCT_IFAST;
    imagen.do_fancy_upsampling = FALSE;
    imagen.out_color_space = imagen.jpeg_color_space;
    if (jpeg_start_decompress(&imagen) == FALSE)
        return EstadoImagen::Danada;
    linea.resize(static_cast<std::size_t>(imagen.output_width)
                 * static_cast<std::size_t>(imagen.output_components));
    JSAMPROW fila = linea.data();
    while (imagen.output_scanline < imagen.output_height) {
        if (jpeg_read_scanlines(&imagen, &fila, 1) != 1)
            return EstadoImagen::Danada;
    }
    return jpeg_finish_decompress(&imagen) == FALSE ? EstadoImagen::Danada : EstadoImagen::Buena;
}

} // namespace

EstadoImagen estadoJpeg(const QByteArray &bytes)
{
    jpeg_decompress_struct imagen{};
    Errores errores{};
    jpeg_progress_mgr progreso{};
    std::vector<JSAMPLE> linea; // outlives a way out of the library
    imagen.err = jpeg_std_error(&errores.propios);
    errores.propios.error_exit = salir;
    errores.propios.emit_message = mensaje;
    errores.propios.output_message = callar;
    volatile auto estado = EstadoImagen::Danada;
    if (setjmp(errores.salida) == 0) { // NOLINT(cert-err52-cpp)
        jpeg_create_decompress(&imagen);
        imagen.mem->max_memory_to_use = memoriaMaxima;
        progreso.progress_monitor = vigilar;
        imagen.progress = &progreso;
        jpeg_mem_src(&imagen, reinterpret_cast<const unsigned char *>(bytes.constData()),
                     static_cast<unsigned long>(bytes.size()));
        estado = decodificar(imagen, linea);
    }
    jpeg_destroy_decompress(&imagen);
    return estado;
}
