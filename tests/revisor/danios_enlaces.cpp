// SPDX-License-Identifier: MIT
#include "revisor/danios.h"

namespace danios {

QList<Danio> deEnlaces()
{
    const QString img = u"archivos/images/"_s;
    const QStringList info{u"infoAlumnos"_s};
    const QByteArray base = "https://servicio.parvanel.example";
    return {
        quitar("logo is missing", reglas::FaltaImagen, img + u"logo.png"_s),
        quitar("label is missing", reglas::FaltaImagen, img + u"labels/Promedio"_s),
        quitar("image of a style is missing", reglas::FaltaImagen, img + u"bg.gif"_s),
        quitar("library is missing", reglas::FaltaBiblioteca,
               u"archivos/jscript/jquery.tools.min.js"_s),
        quitar("second library is missing", reglas::FaltaBiblioteca,
               u"archivos/jscript/jquery.tablesorter.min.js"_s),
        quitar("settings are missing", reglas::FaltaConfiguracion, u"configuracion.txt"_s),
        quitar("front page is missing", reglas::FaltaPortada, u"index.html"_s),
        agregar("anchor to nothing", reglas::EnlaceRoto, deAlumno,
                "<a href='../otros/x.html'>x</a>"),
        agregar("image that is nowhere", reglas::EnlaceRoto, deAlumno,
                "<img src=\"..\\otros\\x.png\">"),
        agregar("style with an image that is nowhere", reglas::EnlaceRoto, deAlumno,
                "<p style=\"background:url( '../otros/x.png' )\">x</p>"),
        agregar("imported style that is nowhere", reglas::EnlaceRoto, deAlumno,
                "<style>/* url(a) */ @import \"../otros/x.css\";</style>"),
        agregar("percent signs that lead nowhere", reglas::EnlaceRoto, deAlumno,
                "<a href='../otros/%41%20x.html'>x</a>"),
        agregar("background that is nowhere", reglas::EnlaceRoto, deAlumno,
                "<table background='../otros/x.gif'><tr><td>x</table>"),
        agregar("set of images that are nowhere", reglas::EnlaceRoto, deAlumno,
                "<img srcset='../otros/a.png 1x, ../otros/b.png 2x'>"),
        agregar("script that is nowhere", reglas::EnlaceRoto, deAlumno,
                "<script src='../jscript/otro.js'></script>"),
        agregar("frame that is nowhere", reglas::EnlaceRoto, deAlumno,
                "<iframe src='../otros/x.html'></iframe>"),
        agregar("onward page that is nowhere", reglas::EnlaceRoto, deAlumno,
                "<meta http-equiv=Refresh content='5; URL=../otros/x.html'>"),
        agregar("base that leads elsewhere", reglas::EnlaceRoto, info,
                "<base href='../otros/'><a href='x.html'>x</a>"),
        agregar("logo of the service", reglas::DireccionDelServicio, conGuion,
                "<img src='" + base + "/Images/Colegios/123/logo.png'>"),
        agregar("photo of the service", reglas::DireccionDelServicio, QStringList{u"matriculas"_s},
                "<img src='" + base + "/jup/images/123/1001-alumno.jpg'>"),
        {"stamp of the service", reglas::DireccionDelServicio,
         [base](Taller &t) {
             const Blanco b = t.pagina(QStringList{u"infoFinal"_s});
             QByteArray bytes = t.leer(b.archivo);
             bytes.replace("..\\images\\promovido.png", base + "/images/promovido.png");
             bytes.replace("..\\images\\reprobado.png", base + "/images/reprobado.png");
             t.escribir(b.archivo, bytes);
             return b;
         }},
        {"label of the service", reglas::DireccionDelServicio,
         [base](Taller &t) {
             const QString id = t.salon().id;
             const Blanco b{u"archivos/consolidadoN/%1.html"_s.arg(id), {}, id};
             t.cambiar(b.archivo, "../images/labels/", base + "/imgTXT.php?txt=");
             return b;
         }},
        {"picture of the service in an observer report", reglas::DireccionDelServicio,
         [base](Taller &t) {
             const Blanco b = t.pagina(QStringList{u"observador"_s});
             t.cambiar(b.archivo, "../../../123-2010/archivos\\images\\apersonal.png",
                       base + "/images/apersonal.png");
             return b;
         },
         true},
        agregar("address of a file", reglas::EnlaceFuera, deAlumno,
                "<a href='file:///C:/Quorvela/123-2010/index.html'>x</a>"),
        agregar("address of drive C", reglas::EnlaceFuera, deAlumno,
                "<img src='C:\\Quorvela\\123-2010\\archivos\\images\\logo.png'>"),
        agregar("absolute path", reglas::EnlaceFuera, deAlumno, "<img src='/images/logo.png'>"),
        agregar("address without scheme", reglas::EnlaceFuera, deAlumno,
                "<img src='//servicio/images/logo.png'>"),
        agregar("link out of the archive", reglas::EnlaceFuera, deAlumno,
                "<a href='../../../../secreto.txt'>x</a>"),
        agregar("other letter case", reglas::SoloWindows, deAlumno,
                "<img src='../IMAGES/Logo.PNG'>"),
        agregar("percent signs of Windows", reglas::SoloWindows, deAlumno,
                "<a href='../fotos/%f1and%fa.jpg'>x</a>"),
        {"renamed archive", reglas::EnlacePorLaRaiz,
         [](Taller &t) {
             const fs::path nueva = t.carpeta.parent_path() / "copia de mayo";
             fs::rename(t.carpeta, nueva);
             t.carpeta = nueva;
             return Blanco{};
         },
         true},
        {"second stamp of a kind", reglas::SegundoSello,
         [base](Taller &t) {
             const Blanco b = t.pagina(QStringList{u"infoFinal"_s});
             const QByteArray sello = t.leer(b.archivo).contains("\\promovido.png")
                                          ? "/images/promovido.png"
                                          : "/images/reprobado.png";
             t.cambiar(b.archivo, "</body>", "<img src='" + base + sello + "'></body>");
             return b;
         }},
        {"label with a colon", reglas::EtiquetaImposible,
         [](Taller &t) {
             const QString ruta = u"archivos/consolidadoF/%1.html"_s.arg(t.salon().id);
             t.cambiar(ruta, "</body>", "<img src='../images/labels/NOTA:FINAL'></body>");
             return Blanco{u"archivos/images/labels/NOTA:FINAL"_s};
         }},
        {"label with a question mark", reglas::EtiquetaImposible,
         [](Taller &t) {
             const QString ruta = u"archivos/consolidadoN/%1.html"_s.arg(t.salon().id);
             t.cambiar(ruta, "</body>", "<img src='../images/labels/\xBFY T\xDA?'></body>");
             return Blanco{ruta};
         }},
        {"logo of the service in a copy of another name", reglas::DireccionDelServicio,
         [base](Taller &t) {
             const Blanco b = t.conMas(QStringList{u"certificados"_s},
                                       "<img src='" + base + "/images/colegios/123/logo.png'>");
             const fs::path nueva = t.carpeta.parent_path() / "data";
             fs::rename(t.carpeta, nueva);
             t.carpeta = nueva;
             return b;
         }},
        {"link of the service in every certificate", reglas::EnlaceDelServicio,
         [](Taller &t) {
             for (const AlumnoDemo &a : t.escuela.alumnos)
                 t.cambiar(u"archivos/certificados/%1.html"_s.arg(a.id), "</body>",
                           "<a href='/certificados/ver.php'>x</a></body>");
             return Blanco{};
         }},
        {"image that no download fetches", reglas::ImagenQueNoSeDescarga,
         [](Taller &t) {
             // Where there are print jobs one of them has.
             [[maybe_unused]] const bool estaba =
                 fs::remove(t.en(u"archivos/images/coordinacion.png"_s));
             t.conMas(deAlumno, "<img src='..\\images\\coordinacion.PNG'>");
             return Blanco{u"archivos/images/coordinacion.PNG"_s};
         }},
        {"picture that no page shows", reglas::ImagenSinTraer,
         [](Taller &t) {
             for (const SalonDemo &salon : t.escuela.salones)
                 t.cambiar(u"archivos/salones/%1.html"_s.arg(salon.id), "asc.gif", "bg.gif");
             t.borrar(u"archivos/images/asc.gif"_s);
             return Blanco{u"archivos/images/asc.gif"_s};
         }},
    };
}

} // namespace danios
