// SPDX-License-Identifier: MIT
#include "imagenesDeFuera.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include <gif_lib.h>

namespace {

// Of all the pictures of one file together.
constexpr std::int64_t pixelesDeTodos = 400'000'000;

int leer(GifFileType *imagen, GifByteType *destino, int largo)
{
    auto *origen = static_cast<BytesDeImagen *>(imagen->UserData);
    const std::size_t cuantos = std::min(static_cast<std::size_t>(largo), origen->quedan);
    std::memcpy(destino, origen->bytes, cuantos);
    origen->bytes += cuantos;
    origen->quedan -= cuantos;
    return static_cast<int>(cuantos);
}

struct Cerrar {
    void operator()(GifFileType *imagen) const
    {
        [[maybe_unused]] const int cerrado = DGifCloseFile(imagen, nullptr); // it was only read
    }
};

bool pasarExtension(GifFileType &imagen)
{
    int clase = 0;
    GifByteType *bloque = nullptr;
    bool va = DGifGetExtension(&imagen, &clase, &bloque) == GIF_OK;
    while (va && bloque != nullptr)
        va = DGifGetExtensionNext(&imagen, &bloque) == GIF_OK;
    return va;
}

EstadoImagen decodificarCuadro(GifFileType &imagen, std::vector<GifPixelType> &linea,
                               std::int64_t &pixeles)
{
    if (DGifGetImageDesc(&imagen) != GIF_OK)
        return EstadoImagen::Danada;
    pixeles += std::int64_t(imagen.Image.Width) * imagen.Image.Height;
    if (demasiadoGrande(imagen.Image.Width, imagen.Image.Height) || pixeles > pixelesDeTodos)
        return EstadoImagen::Enorme;
    linea.resize(static_cast<std::size_t>(std::max(imagen.Image.Width, 1)));
    for (int y = 0; y < imagen.Image.Height; ++y) {
        if (DGifGetLine(&imagen, linea.data(), imagen.Image.Width) != GIF_OK)
            return EstadoImagen::Danada;
    }
    return EstadoImagen::Buena;
}

} // namespace

EstadoImagen estadoGif(const QByteArray &bytes)
{
    BytesDeImagen origen{bytes.constData(), static_cast<std::size_t>(bytes.size())};
    const std::unique_ptr<GifFileType, Cerrar> imagen(DGifOpen(&origen, leer, nullptr));
    if (!imagen)
        return EstadoImagen::Danada;
    std::vector<GifPixelType> linea;
    std::int64_t pixeles = 0;
    int cuadros = 0;
    for (;;) {
        GifRecordType clase = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(imagen.get(), &clase) != GIF_OK)
            return EstadoImagen::Danada;
        if (clase == TERMINATE_RECORD_TYPE)
            return cuadros > 0 ? EstadoImagen::Buena : EstadoImagen::Danada;
        if (clase == EXTENSION_RECORD_TYPE) {
            if (!pasarExtension(*imagen))
                return EstadoImagen::Danada;
            continue;
        }
        const EstadoImagen cuadro = decodificarCuadro(*imagen, linea, pixeles);
        if (cuadro != EstadoImagen::Buena)
            return cuadro;
        ++cuadros;
    }
}
