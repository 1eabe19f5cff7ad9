// SPDX-License-Identifier: MIT
// What befalls an archive on this system alone: links, and names that others refuse.
#include "revisor/danios.h"

namespace danios {

QList<Danio> deEsteSistema()
{
    return {
        {"link that leads nowhere", reglas::EnlaceSinDestino,
         [](Taller &t) {
             fs::create_symlink("informes", t.en(u"archivos/Informes"_s));
             return Blanco{u"archivos/Informes"_s};
         }},
        {"link that leads in a circle", reglas::EnlaceSinDestino,
         [](Taller &t) {
             fs::create_directory_symlink("..", t.en(u"archivos/fotos/vuelta"_s));
             return Blanco{u"archivos/fotos/vuelta"_s};
         }},
        {"link that leads out", reglas::CarpetaFuera,
         [](Taller &t) {
             fs::create_directory_symlink("/usr/share", t.en(u"archivos/fuera"_s));
             return Blanco{u"archivos/fuera"_s};
         }},
        {"name that no stick takes", reglas::NombreDificil,
         [](Taller &t) {
             t.escribir(u"archivos/images/labels/a:b?"_s, pngDe(8, 8));
             return Blanco{u"archivos/images/labels/a:b?"_s};
         }},
        {"name that is no text", reglas::NombreDificil,
         [](Taller &t) {
             escrito(t.carpeta / "archivos/images/labels" / fs::path("\xFF\xFE raro"), pngDe(8, 8));
             return Blanco{};
         }},
    };
}

QSet<int> imposiblesAqui()
{
    return {};
}

} // namespace danios
