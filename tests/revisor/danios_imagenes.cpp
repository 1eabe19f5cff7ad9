// SPDX-License-Identifier: MIT
#include "revisor/danios.h"

namespace danios {

QList<Danio> deImagenes()
{
    const QString img = u"archivos/images/"_s;
    const auto media = [](const QByteArray &bytes) {
        return bytes.left(bytes.size() / 2);
    };
    const auto poner = [](const QByteArray &bytes) {
        return [bytes](const QByteArray &) {
            return bytes;
        };
    };
    return {
        ponerImagen("photo without a byte", reglas::ImagenVacia, {}, poner("")),
        ponerImagen("photo of a line end", reglas::ImagenVacia, {}, poner("\r\n")),
        ponerImagen("page in place of a photo", reglas::ImagenEsPagina, {}, poner(paginaAusente)),
        ponerImagen("heading in place of a photo", reglas::ImagenEsPagina, {},
                    poner("<h1>Error 500</h1>")),
        ponerImagen("photo cut off", reglas::ImagenDanada, {}, media),
        ponerImagen("photo without its last bytes", reglas::ImagenDanada, {},
                    [](const QByteArray &b) { return b.chopped(40); }),
        ponerImagen(
            "photo with a hole", reglas::ImagenDanada, {},
            [](QByteArray b) { return b.replace(b.size() / 2, 600, QByteArray(600, '\xFF')); }),
        ponerImagen("text in place of a photo", reglas::ImagenDanada, {}, poner("no hay foto")),
        ponerImagen("logo cut off", reglas::ImagenDanada, img + u"logo.png"_s, media),
        ponerImagen("logo without its end", reglas::ImagenDanada, img + u"logo.png"_s,
                    [](const QByteArray &b) { return b.chopped(6); }),
        ponerImagen("logo with a wrong byte", reglas::ImagenDanada, img + u"logo.png"_s,
                    [](QByteArray b) {
                        b[b.size() / 2] = static_cast<char>(b[b.size() / 2] ^ 0x10);
                        return b;
                    }),
        ponerImagen("label cut off", reglas::ImagenDanada, img + u"labels/Puesto"_s, media),
        ponerImagen("label is a page", reglas::ImagenEsPagina, img + u"labels/Puesto"_s,
                    poner(paginaAusente)),
        ponerImagen("arrow cut off", reglas::ImagenDanada, img + u"asc.gif"_s, media),
        ponerImagen("arrow without its end", reglas::ImagenDanada, img + u"asc.gif"_s,
                    [](const QByteArray &b) { return b.chopped(2); }),
        ponerImagen("image of 60,000 by 60,000", reglas::ImagenEnorme, {},
                    poner(pngDe(60'000, 60'000))),
    };
}

} // namespace danios
