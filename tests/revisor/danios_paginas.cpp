// SPDX-License-Identifier: MIT
#include "pages/guiones.h"
#include "revisor/danios.h"

namespace danios {

QList<Danio> dePaginas()
{
    const auto con = [](const QByteArray &bytes) {
        return bytes + guionDeDocumento + "\r\n";
    };
    return {
        poner("lone line end", reglas::PaginaVacia, deAlumno, "\r\n"),
        poner("no byte", reglas::PaginaVacia, deAlumno, ""),
        {"computer that went out while a page was stored", reglas::PaginaBorrada,
         [](Taller &t) {
             const Blanco b = t.pagina(deAlumno);
             const QByteArray bytes = t.leer(b.archivo);
             t.escribir(b.archivo, bytes.left(1000).leftJustified(bytes.size(), '\0'));
             return b;
         }},
        {"block of a page that the disk lost", reglas::PaginaBorrada,
         [](Taller &t) {
             const Blanco b = t.pagina(deAlumno);
             QByteArray bytes = t.leer(b.archivo);
             t.escribir(b.archivo, bytes.replace(512, 512, QByteArray(512, '\0')));
             return b;
         }},
        {"classroom's page of nothing but zeros", reglas::PaginaBorrada,
         [](Taller &t) {
             const Blanco b = t.paginaDeSalon();
             t.escribir(b.archivo, QByteArray(t.leer(b.archivo).size(), '\0'));
             return b;
         }},
        poner("nothing but the script", reglas::PaginaVacia, conGuion, con("")),
        poner("ERROR", reglas::PalabraDelServicio, conGuion, con("ERROR")),
        poner("NO", reglas::PalabraDelServicio, deAlumno, "NO\r\n"),
        poner("SI", reglas::PalabraDelServicio, deAlumno, "SI\r\n"),
        poner("page of a status 404", reglas::PaginaDeError, conGuion, con(paginaAusente)),
        poner("page of a status 500", reglas::PaginaDeError, deAlumno, "<h1>Error 500</h1>\r\n"),
        poner("page of maintenance", reglas::PaginaDeError, deAlumno, mantenimiento + "\r\n"),
        poner("notice in the dress of the service's pages", reglas::PaginaDeError, deAlumno,
              "<html><head><title>Aviso</title><style>.hoja { margin: 0; }</style></head><body>"
              "<div class=\"hoja\"><h1>Aviso</h1><p>Estamos mejorando para usted.</p></div>"
              "</body></html>\r\n"),
        poner("warning of the service's own", reglas::PaginaDeError, deAlumno,
              "<br />\n<b>Warning</b>:  query() failed in <b>/srv/alumno.php</b> on line "
              "<b>12</b><br />\r\n"),
        poner("bare text", reglas::SinHtml, deAlumno, "hola, esto no es nada\r\n"),
        poner("bytes of any kind", reglas::SinHtml, deAlumno,
              QByteArray("\x01\x02\xFF\x7F\x00\x80", 6)),
        poner("an image as a page", reglas::SinHtml, deAlumno, pngDe(8, 8)),
        {"cut off in the middle", reglas::PaginaCortada,
         [](Taller &t) {
             const Blanco b = t.pagina(deAlumno);
             const QByteArray bytes = t.leer(b.archivo);
             t.escribir(b.archivo, bytes.left(bytes.indexOf("</body>") / 2 + 2200));
             return b;
         }},
        {"cut off by the service, with the script after it", reglas::PaginaCortada,
         [con](Taller &t) {
             const Blanco b = t.pagina(conGuion);
             const QByteArray bytes = t.leer(b.archivo);
             t.escribir(b.archivo, con(bytes.left(bytes.indexOf("</body>") - 300)));
             return b;
         }},
        {"end tag is missing", reglas::PaginaCortada,
         [](Taller &t) {
             const Blanco b = t.pagina(deAlumno);
             t.cambiar(b.archivo, "</html>", "");
             return b;
         }},
        {"front page cut off", reglas::PaginaCortada,
         [](Taller &t) {
             const QByteArray bytes = t.leer(u"index.html"_s);
             t.escribir(u"index.html"_s, bytes.chopped(30));
             return Blanco{u"index.html"_s};
         }},
        {"front page empty", reglas::PaginaVacia,
         [](Taller &t) {
             t.escribir(u"index.html"_s, "\r\n");
             return Blanco{u"index.html"_s};
         }},
        {"page of maintenance in place of the front page", reglas::PaginaDeError,
         [](Taller &t) {
             t.escribir(u"index.html"_s, mantenimiento);
             return Blanco{u"index.html"_s};
         }},
        {"somebody else's page", reglas::PaginaAjena,
         [](Taller &t) {
             const Blanco b = t.pagina(deAlumno);
             Blanco otra = b;
             while (otra.idPersona == b.idPersona)
                 otra.idPersona = t.alumno().id;
             otra.archivo.replace(u'/' + b.idPersona + u".html"_s,
                                  u'/' + otra.idPersona + u".html"_s);
             t.escribir(b.archivo, t.leer(otra.archivo));
             // Which of two pages without an id is the right one cannot be known.
             return Blanco{b.archivo, b.idPersona, {}, {otra.archivo}};
         }},
        {"one page in place of all", reglas::PaginaDeError,
         [con](Taller &t) {
             Blanco b = t.pagina(conGuion);
             const QString carpeta = b.archivo.section(u'/', 0, 1);
             for (const AlumnoDemo &a : t.escuela.alumnos) {
                 b.tambien.append(carpeta + u'/' + a.id + u".html"_s);
                 t.escribir(b.tambien.last(), con(mantenimiento));
             }
             return b;
         }},
        {"script is missing", reglas::SinGuion,
         [](Taller &t) {
             const Blanco b = t.pagina(conGuion);
             t.cambiar(b.archivo, guionDeDocumento, "");
             return b;
         }},
        {"script is cut off", reglas::SinGuion,
         [](Taller &t) {
             const Blanco b = t.pagina(conGuion);
             t.escribir(b.archivo, t.leer(b.archivo).chopped(40));
             return b;
         }},
        {"classroom's page is an error page", reglas::PaginaDeError,
         [](Taller &t) {
             const Blanco b = t.paginaDeSalon();
             t.escribir(b.archivo, paginaAusente);
             return b;
         }},
        {"classroom's page is empty", reglas::PaginaVacia,
         [](Taller &t) {
             const Blanco b = t.paginaDeSalon();
             t.escribir(b.archivo, "\r\n");
             return b;
         }},
        {"report card without its script", reglas::SinGuion,
         [](Taller &t) {
             const Blanco b = t.pagina(QStringList{u"boletines/P1"_s, u"boletines/P3"_s});
             t.cambiar(b.archivo, guiones::boletin.toLatin1(), "");
             return b;
         },
         true},
        {"clearance certificate is an error page", reglas::PaginaDeError,
         [](Taller &t) {
             const Blanco b = t.pagina(QStringList{u"pazysalvos"_s});
             t.escribir(b.archivo, mantenimiento);
             return b;
         },
         true},
        poner("nested beyond all measure", reglas::PaginaEnredada, deAlumno,
              "<html><body>" + QByteArray("<div>").repeated(100'000)),
    };
}

} // namespace danios
