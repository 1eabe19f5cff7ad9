// SPDX-License-Identifier: MIT
// Damage of every kind, planted at random places of archives that are whole, by turns one of the
// demonstration school and one of a school drawn at random: each is found, with the file and the
// person concerned, and nothing else is said to be wrong. PARVANEL_REVISOR_SEMILLA chooses others.
#include "pages/guiones.h"
#include "revisor/EscuelaDePrueba.h"
#include "revisor/Revision.h"

#include <QBuffer>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <functional>
#include <map>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

const std::array<QString, 4> deAlumno = {u"infoFinal"_s, u"certificados"_s, u"matriculas"_s,
                                         u"infoAlumnos"_s};
const std::array<QString, 3> conGuion = {u"infoFinal"_s, u"certificados"_s, u"matriculas"_s};
const std::array<QString, 3> deSalon = {u"salones"_s, u"consolidadoN"_s, u"consolidadoF"_s};

// What is expected of the review.
struct Blanco {
    QString archivo;
    QString idPersona{};
    QString idSalon{};
    QStringList tambien{}; // other files of which something may be said
};

// An archive to be damaged, and places in it.
struct Taller {
    const Escuela &escuela;
    fs::path carpeta;
    QRandomGenerator azar;

    template <typename Lista>
    const auto &uno(const Lista &lista)
    {
        return lista[static_cast<typename Lista::size_type>(
            azar.bounded(static_cast<int>(lista.size())))];
    }
    const AlumnoDemo &alumno() { return uno(escuela.alumnos); }
    const AlumnoDemo &conFoto()
    {
        for (;;) {
            if (const AlumnoDemo &a = alumno(); a.conFoto)
                return a;
        }
    }
    const SalonDemo &salon() { return uno(escuela.salones); }
    fs::path en(const QString &ruta) const { return carpeta / ruta.toStdString(); }
    QByteArray leer(const QString &ruta) const { return leido(en(ruta)); }
    void escribir(const QString &ruta, const QByteArray &bytes) const { escrito(en(ruta), bytes); }
    void borrar(const QString &ruta) const { QVERIFY(fs::remove(en(ruta))); }
    void cambiar(const QString &ruta, const QByteArray &antes, const QByteArray &despues) const
    {
        QByteArray bytes = leer(ruta);
        QVERIFY2(bytes.contains(antes), qPrintable(ruta));
        escribir(ruta, bytes.replace(bytes.indexOf(antes), antes.size(), despues));
    }
    // A page of a student, of one of these kinds.
    template <typename Carpetas>
    Blanco pagina(const Carpetas &carpetas)
    {
        const AlumnoDemo &a = alumno();
        return {u"archivos/"_s + uno(carpetas) + u'/' + a.id + u".html"_s, a.id};
    }
    Blanco paginaDeSalon()
    {
        const SalonDemo &s = salon();
        return {u"archivos/"_s + uno(deSalon) + u'/' + s.id + u".html"_s, {}, s.id};
    }
    Blanco foto()
    {
        const QString id = conFoto().id;
        return {u"archivos/fotos/"_s + id + u"-alumno.jpg"_s, id};
    }
    // A page with something more in it, where its own content ends.
    template <typename Carpetas>
    Blanco conMas(const Carpetas &carpetas, const QByteArray &html)
    {
        const Blanco b = pagina(carpetas);
        cambiar(b.archivo, "</body>", html + "</body>");
        return b;
    }
    // Time stamps as a download leaves them, one file after the other.
    void fechar(std::chrono::hours haceCuanto) const;
};

int pasoDe(const QString &ruta)
{
    const QStringList orden = {u"archivos/jscript/"_s,
                               u"configuracion.txt"_s,
                               u"archivos/images/labels/"_s,
                               u"archivos/images/"_s,
                               u"index.html"_s,
                               u"archivos/salones/"_s,
                               u"archivos/consolidadoN/"_s,
                               u"archivos/consolidadoF/"_s,
                               u"archivos/infoFinal/"_s,
                               u"archivos/certificados/"_s,
                               u"archivos/matriculas/"_s,
                               u"archivos/infoAlumnos/"_s,
                               u"archivos/fotos/"_s};
    for (qsizetype i = 0; i < orden.size(); ++i) {
        if (ruta.startsWith(orden[i]))
            return orden[i].endsWith(u"labels/"_s) ? 100 : static_cast<int>(i);
    }
    return 200;
}

void Taller::fechar(std::chrono::hours haceCuanto) const
{
    std::multimap<int, fs::path> enOrden;
    for (const auto &una : fs::recursive_directory_iterator(carpeta)) {
        if (una.is_regular_file())
            enOrden.emplace(pasoDe(textoDe(fs::relative(una.path(), carpeta))), una.path());
    }
    auto cuando = fs::file_time_type::clock::now() - haceCuanto;
    for (const auto &[paso, ruta] : enOrden)
        fs::last_write_time(ruta, cuando += std::chrono::milliseconds(700));
}

void envejecer(const fs::path &ruta)
{
    fs::last_write_time(ruta, fs::last_write_time(ruta) - std::chrono::hours(24 * 30));
}

const QByteArray guionDeDocumento = guiones::documento.toLatin1();
const QByteArray paginaAusente = "<!DOCTYPE html>\r\n<html lang=\"es\"><head><title>P\xE1gina no "
                                 "encontrada</title></head><body><h1>P\xE1gina no "
                                 "encontrada</h1></body></html>\r\n";
const QByteArray mantenimiento = "<html><head><title>Aviso</title></head><body><p>Estamos "
                                 "mejorando para usted. Vuelva m\xE1s tarde.</p></body></html>";

QByteArray pngDe(int ancho, int alto)
{
    QImage imagen(8, 8, QImage::Format_RGB32);
    imagen.fill(Qt::red);
    QByteArray bytes;
    QBuffer memoria(&bytes);
    [[maybe_unused]] const bool abierta = memoria.open(QIODevice::WriteOnly);
    imagen.save(&memoria, "PNG");
    // The header's own sum must be right for the size to be read at all.
    const auto numero = [](int n) {
        return QByteArray::fromHex(QByteArray::number(n, 16).rightJustified(8, '0'));
    };
    bytes.replace(16, 8, numero(ancho) + numero(alto));
    quint32 suma = 0xFFFFFFFFU;
    for (const char c : bytes.mid(12, 17)) {
        suma ^= static_cast<unsigned char>(c);
        for (int i = 0; i < 8; ++i)
            suma = (suma >> 1) ^ ((suma & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    bytes.replace(29, 4, QByteArray::fromHex(QByteArray::number(~suma, 16).rightJustified(8, '0')));
    return bytes;
}

struct Danio {
    const char *nombre;
    reglas::Cual regla;
    std::function<Blanco(Taller &)> plantar;
    bool enLotes = false; // only in the archive that has print jobs
};

// Removes a file that is then the one that is missing.
Danio quitar(const char *nombre, reglas::Cual regla, const QString &ruta)
{
    return {nombre, regla, [ruta](Taller &t) {
                t.borrar(ruta);
                return Blanco{ruta};
            }};
}

template <typename Carpetas>
Danio poner(const char *nombre, reglas::Cual regla, const Carpetas &carpetas,
            const QByteArray &contenido)
{
    return {nombre, regla, [carpetas, contenido](Taller &t) {
                const Blanco b = t.pagina(carpetas);
                t.escribir(b.archivo, contenido);
                return b;
            }};
}

template <typename Carpetas>
Danio agregar(const char *nombre, reglas::Cual regla, const Carpetas &carpetas,
              const QByteArray &html)
{
    return {nombre, regla, [carpetas, html](Taller &t) {
                return t.conMas(carpetas, html);
            }};
}

Danio configurar(const char *nombre, reglas::Cual regla,
                 const std::function<QByteArray(QByteArray)> &cambiar)
{
    return {nombre, regla, [cambiar](Taller &t) {
                t.escribir(u"configuracion.txt"_s, cambiar(t.leer(u"configuracion.txt"_s)));
                return Blanco{u"configuracion.txt"_s};
            }};
}

QByteArray conValor(QByteArray guion, const QByteArray &nombre, const QByteArray &valor)
{
    const qsizetype desde = guion.indexOf("var " + nombre + " = \"") + nombre.size() + 8;
    const qsizetype hasta = guion.indexOf("\";\r\n", desde);
    return guion.replace(desde, hasta - desde, valor);
}

Danio ponerImagen(const char *nombre, reglas::Cual regla, const QString &ruta,
                  const std::function<QByteArray(QByteArray)> &cambiar)
{
    return {nombre, regla, [ruta, cambiar](Taller &t) {
                const Blanco b = ruta.isEmpty() ? t.foto() : Blanco{ruta};
                t.escribir(b.archivo, cambiar(t.leer(b.archivo)));
                return b;
            }};
}

QList<Danio> deGente()
{
    QList<Danio> todos;
    for (const QString &carpeta : deAlumno) {
        todos.append({carpeta == deAlumno[0]   ? "final report is missing"
                      : carpeta == deAlumno[1] ? "certificate is missing"
                      : carpeta == deAlumno[2] ? "enrolment sheet is missing"
                                               : "student information is missing",
                      reglas::FaltaDocumento, [carpeta](Taller &t) {
                          const Blanco b = t.pagina(QStringList{carpeta});
                          t.borrar(b.archivo);
                          return b;
                      }});
    }
    for (const QString &carpeta : deSalon) {
        todos.append({carpeta == deSalon[0]   ? "classroom is missing"
                      : carpeta == deSalon[1] ? "grades are missing"
                                              : "absences are missing",
                      reglas::FaltaSalon, [carpeta](Taller &t) {
                          const QString id = t.salon().id;
                          const QString ruta = u"archivos/%1/%2.html"_s.arg(carpeta, id);
                          t.borrar(ruta);
                          return Blanco{ruta, {}, id};
                      }});
    }
    todos.append({"photo is missing", reglas::FaltaFoto, [](Taller &t) {
                      const Blanco b = t.foto();
                      t.borrar(b.archivo);
                      return b;
                  }});
    todos.append({"student is missing altogether", reglas::FaltaDocumento, [](Taller &t) {
                      Blanco b = t.pagina(deAlumno);
                      for (const QString &carpeta : deAlumno) {
                          b.tambien.append(u"archivos/%1/%2.html"_s.arg(carpeta, b.idPersona));
                          t.borrar(b.tambien.last());
                      }
                      return b;
                  }});
    todos.append({"classroom is missing altogether", reglas::FaltaSalon, [](Taller &t) {
                      Blanco b = t.paginaDeSalon();
                      for (const QString &carpeta : deSalon) {
                          b.tambien.append(u"archivos/%1/%2.html"_s.arg(carpeta, b.idSalon));
                          t.borrar(b.tambien.last());
                      }
                      return b;
                  }});
    todos.append({"folder is missing", reglas::FaltaDocumento, [](Taller &t) {
                      const Blanco b = t.pagina(QStringList{u"matriculas"_s});
                      fs::remove_all(t.en(u"archivos/matriculas"_s));
                      Blanco todos = b;
                      for (const AlumnoDemo &a : t.escuela.alumnos)
                          todos.tambien.append(u"archivos/matriculas/"_s + a.id + u".html"_s);
                      return todos;
                  }});
    todos.append({"page under another name", reglas::FaltaDocumento, [](Taller &t) {
                      const Blanco b = t.pagina(deAlumno);
                      fs::rename(t.en(b.archivo), t.en(b.archivo.chopped(1)));
                      return b;
                  }});
    todos.append({"page in another folder", reglas::FaltaDocumento, [](Taller &t) {
                      Blanco b = t.pagina(QStringList{u"matriculas"_s});
                      // Its own links lead nowhere from there.
                      b.tambien = QStringList{u"archivos/"_s + b.idPersona + u".html"_s};
                      fs::rename(t.en(b.archivo), t.en(b.tambien.first()));
                      return b;
                  }});
    todos.append({"photo of somebody unknown", reglas::FaltaDocumento, [](Taller &t) {
                      fs::copy(t.en(t.foto().archivo), t.en(u"archivos/fotos/99123-alumno.jpg"_s));
                      Blanco b{u"archivos/certificados/99123.html"_s, u"99123"_s};
                      for (const QString &carpeta : deAlumno)
                          b.tambien.append(u"archivos/"_s + carpeta + u"/99123.html"_s);
                      return b;
                  }});
    return todos;
}

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

QList<Danio> deGuiones()
{
    const QString biblioteca = u"archivos/jscript/jquery.tools.min.js"_s;
    const auto enBiblioteca = [&](const char *nombre,
                                  const std::function<QByteArray(QByteArray)> &cambiar) {
        return ponerImagen(nombre, reglas::BibliotecaDanada, biblioteca, cambiar);
    };
    return {
        configurar("variable is missing", reglas::AjusteAusente,
                   [](QByteArray b) { return b.replace("var cdane", "var otra"); }),
        configurar("variable is empty", reglas::AjusteVacio,
                   [](const QByteArray &b) { return conValor(b, "telefono", ""); }),
        configurar("variable of blanks", reglas::AjusteVacio,
                   [](const QByteArray &b) { return conValor(b, "slogan", "   "); }),
        configurar(
            "quote in a value", reglas::AjusteRoto,
            [](const QByteArray &b) { return conValor(b, "micolegio", "I. E. \"La Paz\""); }),
        configurar("backslash at a value's end", reglas::AjusteRoto,
                   [](const QByteArray &b) { return conValor(b, "rector", "Ana\\"); }),
        configurar("backslash inside a value", reglas::AjusteRoto,
                   [](const QByteArray &b) { return conValor(b, "direccion", "Calle 1\\n"); }),
        configurar("page in place of a value", reglas::AjusteRoto,
                   [](const QByteArray &b) {
                       return conValor(b, "cdane", "<!DOCTYPE html><html>404</html>");
                   }),
        configurar("service word in place of a value", reglas::AjusteRoto,
                   [](const QByteArray &b) { return conValor(b, "secretaria", "ERROR"); }),
        configurar("settings do not run", reglas::ConfiguracionNoCorre,
                   [](const QByteArray &b) { return b + "var = ;\r\n"; }),
        configurar("settings cut off", reglas::ConfiguracionNoCorre,
                   [](const QByteArray &b) { return b.chopped(9); }),
        configurar("settings empty", reglas::AjusteAusente,
                   [](const QByteArray &) { return "\r\n"; }),
        configurar("page in place of the settings", reglas::ConfiguracionNoCorre,
                   [](const QByteArray &) { return paginaAusente; }),
        enBiblioteca("library of nothing but zeros",
                     [](const QByteArray &b) { return QByteArray(b.size(), '\0'); }),
        enBiblioteca(
            "library that ends in zeros",
            [](const QByteArray &b) { return b.left(b.size() / 2).leftJustified(b.size(), '\0'); }),
        enBiblioteca("library empty", [](const QByteArray &) { return "\r\n"; }),
        enBiblioteca("page in place of a library",
                     [](const QByteArray &) { return paginaAusente; }),
        enBiblioteca("library cut off", [](const QByteArray &b) { return b.left(b.size() / 2); }),
    };
}

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
        {"file of somebody's own", reglas::ArchivoAjeno,
         [](Taller &t) {
             t.escribir(u"archivos/salones/notas de la secretaria.docx"_s, "x");
             return Blanco{u"archivos/salones/notas de la secretaria.docx"_s};
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

QList<Danio> todos()
{
    return deGente() + deEnlaces() + dePaginas() + deImagenes() + deGuiones() + deFechasYRestos();
}

} // namespace

class tst_danios : public QObject {
    Q_OBJECT
private:
    struct Original {
        std::unique_ptr<EscuelaDePrueba> escuela;
        QTemporaryDir personal;
        fs::path carpeta;
    };

    static QString nombreDe(const Escuela &escuela, const QString &id)
    {
        for (const AlumnoDemo &alumno : escuela.alumnos) {
            if (alumno.id == id)
                return alumno.nombre;
        }
        return id;
    }

    static QString nombreDeSalon(const Escuela &escuela, const QString &id)
    {
        for (const SalonDemo &salon : escuela.salones) {
            if (salon.id == id)
                return salon.nombre;
        }
        return id;
    }

    Original m_demostracion;
    Original m_alAzar;
    quint32 m_semilla = 0;

    static void hacer(Original &original, Escuela escuela, bool conLotes)
    {
        original.escuela = std::make_unique<EscuelaDePrueba>(std::move(escuela));
        original.carpeta = original.escuela->descargar(original.personal.path());
        if (conLotes)
            original.escuela->imprimir(original.personal.path());
        // Something whose name Windows reads from percent signs of its own.
        fs::copy(original.carpeta / "archivos/images/logo.png", original.carpeta / "archivos/fotos"
                                                                    / fs::path("\xC3\xB1"
                                                                               "and\xC3\xBA.jpg"));
    }

    // A school of some size, with ids that are no numbers.
    static Escuela deVarios(QRandomGenerator &azar)
    {
        for (;;) {
            const Escuela escuela = escuelaAlAzar(azar);
            const bool raros = std::any_of(escuela.alumnos.begin(), escuela.alumnos.end(),
                                           [](const AlumnoDemo &a) { return a.id.toInt() == 0; });
            const auto conFoto = std::count_if(escuela.alumnos.begin(), escuela.alumnos.end(),
                                               [](const AlumnoDemo &a) { return a.conFoto; });
            if (raros && escuela.salones.size() >= 3 && escuela.alumnos.size() >= 8
                && escuela.alumnos.size() <= 16 && conFoto >= 2 && escuela.materias.size() >= 3)
                return escuela;
        }
    }

    void probar(const Original &original, const Danio &danio, quint32 semilla)
    {
        const QTemporaryDir otra;
        const fs::path carpeta = fs::path(otra.path().toStdString()) / "123-2010";
        fs::copy(original.carpeta, carpeta,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        const Escuela &escuela = original.escuela->escuela;
        Taller taller{escuela, carpeta, QRandomGenerator(semilla)};
        const Blanco blanco = danio.plantar(taller);
        if (QTest::currentTestFailed())
            return;
        juzgar(revisar(taller.carpeta), danio, blanco, escuela);
        // The folder's own class cannot name every file.
        fs::remove_all(taller.carpeta);
    }

    static void juzgar(const Resultado &resultado, const Danio &danio, const Blanco &blanco,
                       const Escuela &escuela)
    {
        const Regla &regla = reglas::todas[danio.regla];
        bool hallado = false;
        QStringList demas;
        for (const Hallazgo &h : resultado.hallazgos) {
            const bool suyo =
                h.regla == &regla && (blanco.archivo.isEmpty() || h.archivo == blanco.archivo);
            if (suyo) {
                hallado = true;
                if (regla.gravedad != Gravedad::Nota || danio.regla == reglas::DeOtraDescarga) {
                    if (!blanco.idPersona.isEmpty() && blanco.idPersona != u"99123"_s)
                        QCOMPARE(h.persona, nombreDe(escuela, blanco.idPersona));
                    QVERIFY(blanco.idPersona.isEmpty() || h.idPersona == blanco.idPersona);
                    if (!blanco.idSalon.isEmpty())
                        QCOMPARE(h.salon, nombreDeSalon(escuela, blanco.idSalon));
                }
            }
            if (h.regla->gravedad != Gravedad::Nota && h.archivo != blanco.archivo
                && !blanco.tambien.contains(h.archivo))
                demas.append(h.regla->nombre.toString() + u' ' + h.archivo + u' ' + h.detalle);
        }
        QStringList todos;
        for (const Hallazgo &h : resultado.hallazgos)
            todos.append(h.regla->nombre.toString() + u' ' + h.archivo + u' ' + h.detalle);
        QVERIFY2(hallado, qPrintable(blanco.archivo + u" among\n"_s
                                     + QStringList(todos.mid(0, 15)).join(u'\n')));
        QVERIFY2(demas.isEmpty(), qPrintable(QStringList(demas.mid(0, 10)).join(u'\n')));
        QCOMPARE(resultado.veredicto, regla.gravedad == Gravedad::Nota
                                          ? Veredicto::Completo
                                          : Veredicto::FaltanDocumentos);
    }

private Q_SLOTS:
    void initTestCase()
    {
        bool dada = false;
        m_semilla = quint32(qEnvironmentVariableIntValue("PARVANEL_REVISOR_SEMILLA", &dada));
        if (!dada)
            m_semilla = 20101;
        qInfo("PARVANEL_REVISOR_SEMILLA=%u", m_semilla);
        QRandomGenerator azar(m_semilla);
        hacer(m_demostracion, generarEscuela({2010, 2, 4, 5}), true);
        hacer(m_alAzar, deVarios(azar), false);
    }

    void originales_sonCompletos()
    {
        for (const Original *original : {&m_demostracion, &m_alAzar}) {
            const Resultado resultado = revisar(original->carpeta);
            QCOMPARE(resultado.veredicto, Veredicto::Completo);
        }
    }

    void danio_seEncuentra_data()
    {
        QTest::addColumn<int>("cual");
        const QList<Danio> danios = todos();
        for (int i = 0; i < danios.size(); ++i)
            QTest::newRow(danios[i].nombre) << i;
        QVERIFY(danios.size() >= 60);
    }
    void danio_seEncuentra()
    {
        QFETCH(int, cual);
        const Danio danio = todos()[cual];
        const bool enUna = danio.enLotes || (m_semilla + quint32(cual)) % 2 == 0;
        probar(enUna ? m_demostracion : m_alAzar, danio, m_semilla + quint32(cual));
    }

    // Every rule has its damage; of the first two another test has it (tst_hostiles), and the
    // others every archive has, damaged or not (tst_completos).
    void reglas_tienenTodasSuDanio()
    {
        QSet<int> probadas = {reglas::SoloImpresiones, reglas::NoSeLee, reglas::AvatarSinFoto,
                              reglas::AjustesDeBoletin, reglas::GuionDelServicio};
        for (const Danio &danio : todos())
            probadas.insert(danio.regla);
        for (int i = 0; i < reglas::Cuantas; ++i)
            QVERIFY2(probadas.contains(i),
                     qPrintable(reglas::todas[std::size_t(i)].nombre.toString()));
    }
};

QTEST_MAIN(tst_danios)
#include "tst_danios.moc"
