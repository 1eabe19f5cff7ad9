// SPDX-License-Identifier: MIT
// Page localisation: service addresses in a page become relative paths of the archive. The mix
// of "\" and "/" in what is put in is the archive's own and stays; browsers read either.
#pragma once

#include "pages/plantilla.h"

#include <QByteArray>

#include <span>

struct Reemplazo {
    enum Cuantos { Todos, SoloElPrimero };

    Plantilla buscar;
    Plantilla poner;
    Cuantos cuantos = Todos;
    Qt::CaseSensitivity letras = Qt::CaseInsensitive;
};

// The page with the replacements made, in their order, each over the whole page. The page is in
// bytes of the code page, as it comes and as it is stored: one may be 50 MB long, and the window
// waits while it is gone through. It is changed where it stands when the caller gives its own away.
QByteArray localizar(QByteArray pagina, std::span<const Reemplazo> filas, const Valores &valores);

namespace reemplazos {

// The school's own images, the logo and the like, in the image folder that `poner` leads to.
consteval Reemplazo imagenesDelColegio(Plantilla poner)
{
    return {.buscar = u"{base}/images/colegios/{colegio}/", .poner = poner};
}

// A text that the service draws as an image. One that begins "NOTA:" loses its colon, which no
// file name can hold, and must do so before the others.
inline constexpr Reemplazo etiquetaNota = {.buscar = u"{base}/imgTXT.php?txt=NOTA:",
                                           .poner = u"../images/labels/NOTA"};
inline constexpr Reemplazo etiqueta = {.buscar = u"{base}/imgTXT.php?txt=",
                                       .poner = u"../images/labels/"};

// The stamps of a final report. They alone regard letter case and stop after the first: a page
// shows one stamp, and what else names it is the service's own text, which an archive keeps as it
// came.
inline constexpr Reemplazo promovido = {.buscar = u"{base}/images/promovido.png",
                                        .poner = u"..\\images\\promovido.png",
                                        .cuantos = Reemplazo::SoloElPrimero,
                                        .letras = Qt::CaseSensitive};
inline constexpr Reemplazo reprobado = {.buscar = u"{base}/images/reprobado.png",
                                        .poner = u"..\\images\\reprobado.png",
                                        .cuantos = Reemplazo::SoloElPrimero,
                                        .letras = Qt::CaseSensitive};

// The folio of a certificate, to be filled in by hand.
inline constexpr Reemplazo folio = {.buscar = u"Folio: \u00AEfolio\u00AE",
                                    .poner = u"Folio: _______"};

// Student photos, and the picture of a student without one. Nothing stores the latter in the
// photo folder (it stands with the other images), so that its link leads to no file and a browser
// shows the empty frame that the secretary knows as "no photo".
inline constexpr Reemplazo foto = {.buscar = u"{base}/jup/images/{colegio}/",
                                   .poner = u"..\\fotos\\"};
inline constexpr Reemplazo avatar = {.buscar = u"{base}/images/default-avatar.png",
                                     .poner = u"..\\fotos\\default-avatar.png"};

} // namespace reemplazos
