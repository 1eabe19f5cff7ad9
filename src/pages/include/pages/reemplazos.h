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
    return {u"{base}/images/colegios/{colegio}/", poner};
}

// A text that the service draws as an image. One that begins "NOTA:" loses its colon, which no
// file name can hold, and must do so before the others.
inline constexpr Reemplazo etiquetaNota = {u"{base}/imgTXT.php?txt=NOTA:",
                                           u"../images/labels/NOTA"};
inline constexpr Reemplazo etiqueta = {u"{base}/imgTXT.php?txt=", u"../images/labels/"};

// The stamps of a final report. They alone regard letter case and stop after the first: a page
// shows one stamp, and what else names it is the service's own text, which an archive keeps as it
// came.
inline constexpr Reemplazo promovido = {u"{base}/images/promovido.png",
                                        u"..\\images\\promovido.png", Reemplazo::SoloElPrimero,
                                        Qt::CaseSensitive};
inline constexpr Reemplazo reprobado = {u"{base}/images/reprobado.png",
                                        u"..\\images\\reprobado.png", Reemplazo::SoloElPrimero,
                                        Qt::CaseSensitive};

// The folio of a certificate, to be filled in by hand.
inline constexpr Reemplazo folio = {u"Folio: \u00AEfolio\u00AE", u"Folio: _______"};

// Student photos, and the picture of a student without one. Nothing stores the latter in the
// photo folder (it stands with the other images), so that its link leads to no file and a browser
// shows the empty frame that the secretary knows as "no photo".
inline constexpr Reemplazo foto = {u"{base}/jup/images/{colegio}/", u"..\\fotos\\"};
inline constexpr Reemplazo avatar = {u"{base}/images/default-avatar.png",
                                     u"..\\fotos\\default-avatar.png"};

} // namespace reemplazos
