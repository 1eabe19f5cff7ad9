// SPDX-License-Identifier: MIT
#include "revisor/danios.h"

namespace danios {

QList<Danio> deFechasYRestos()
{
    return {
        {"page that the last download did not renew", reglas::PaginaVieja,
         [](Taller &t) {
             t.fechar(std::chrono::hours(5));
             const Blanco b = t.pagina(deAlumno);
             envejecer(t.en(b.archivo));
             return b;
         }},
        {"classroom that the last download did not renew", reglas::PaginaVieja,
         [](Taller &t) {
             t.fechar(std::chrono::hours(5));
             const Blanco b = t.paginaDeSalon();
             envejecer(t.en(b.archivo));
             return b;
         }},
        {"second download that broke off", reglas::PaginaVieja,
         [](Taller &t) {
             t.fechar(std::chrono::hours(5));
             const Blanco b = t.pagina(QStringList{u"matriculas"_s, u"infoAlumnos"_s});
             Blanco todos = b;
             for (const auto &una : fs::recursive_directory_iterator(t.carpeta)) {
                 const QString ruta = textoDe(fs::relative(una.path(), t.carpeta));
                 if (!una.is_regular_file() || pasoDe(ruta) < pasoDe(u"archivos/infoFinal/"_s))
                     continue;
                 envejecer(una.path());
                 todos.tambien.append(ruta);
             }
             return todos;
         }},
        {"student who has left", reglas::DeOtraDescarga,
         [](Taller &t) {
             t.fechar(std::chrono::hours(5));
             for (const QString &carpeta : deAlumno) {
                 const QString desde =
                     u"archivos/%1/%2.html"_s.arg(carpeta, t.escuela.alumnos[0].id);
                 const QString hasta = u"archivos/%1/99123.html"_s.arg(carpeta);
                 QByteArray bytes = t.leer(desde);
                 bytes.replace(t.escuela.alumnos[0].id.toLatin1(), "99123");
                 bytes.replace("99123-alumno.jpg", "default-avatar.png");
                 t.escribir(hasta, bytes.replace("</body>", "<p>Otra persona</p></body>"));
                 fs::last_write_time(t.en(hasta), fs::last_write_time(t.en(u"index.html"_s))
                                                      - std::chrono::hours(24 * 300));
             }
             return Blanco{u"archivos/certificados/99123.html"_s, u"99123"_s};
         }},
        {"leftover of a download", reglas::RestoDeDescarga,
         [](Taller &t) {
             const QString ruta = u"archivos/fotos/.descarga-4711-2"_s;
             t.escribir(ruta, "media foto");
             return Blanco{ruta};
         }},
        {"file of somebody's own", reglas::ArchivoAjeno,
         [](Taller &t) {
             t.escribir(u"archivos/salones/notas de la secretaria.docx"_s, "x");
             return Blanco{u"archivos/salones/notas de la secretaria.docx"_s};
         }},
    };
}

} // namespace danios
