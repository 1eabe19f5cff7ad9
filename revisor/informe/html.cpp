// SPDX-License-Identifier: MIT
#include "estilo.h"
#include "grupos.h"
#include "revisor/informe.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace informe {

namespace {

// The one way by which a text of an archive comes into the page.
QString html(const QString &texto)
{
    return legible(texto).toHtmlEscaped();
}

QString html(QStringView texto)
{
    return texto.toString().toHtmlEscaped();
}

// A path may be broken after each of its folders, and nowhere else.
QString rutaHtml(const QString &ruta)
{
    return u"<code>"_s + html(ruta).replace(u'/', u"/<wbr>"_s) + u"</code>"_s;
}

struct Senal {
    QString clase;
    QString signo; // beside the words, for whom the colour says nothing
};

Senal senal(Veredicto veredicto)
{
    switch (veredicto) {
    case Veredicto::Completo:
        return {.clase = u"bien"_s, .signo = u"✓"_s};
    case Veredicto::FaltanDocumentos:
        return {.clase = u"mal"_s, .signo = u"!"_s};
    case Veredicto::NoEsHistorico:
    case Veredicto::NoSeLee:
    case Veredicto::Detenida:
        break;
    }
    return {.clase = u"nada"_s, .signo = u"?"_s};
}

QString veredicto(const Resultado &resultado)
{
    const Senal cual = senal(resultado.veredicto);
    return u"<div class=\"veredicto %1\"><span class=\"signo\" aria-hidden=\"true\">%2</span>"
           u"<div><p class=\"palabra\">%3</p><p>%4</p></div></div>\n"_s.arg(
               cual.clase, cual.signo, html(titulo(resultado)), html(explicacion(resultado)));
}

QString dato(const QString &nombre, const QString &valorHtml)
{
    return u"<div><dt>%1</dt><dd>%2</dd></div>\n"_s.arg(nombre, valorHtml);
}

QString datos(const Resultado &resultado)
{
    const QLocale espanol(QLocale::Spanish);
    QString lista = u"<dl>\n"_s;
    if (const QString cuando = descargado(resultado); !cuando.isEmpty())
        lista += dato(u"Descargado"_s, html(cuando));
    lista += dato(u"Salones"_s, espanol.toString(resultado.salones));
    lista += dato(u"Estudiantes"_s, espanol.toString(resultado.personas));
    lista += dato(u"Fotos"_s, espanol.toString(resultado.fotos));
    lista +=
        dato(u"En el disco"_s,
             u"%1 archivos, %2"_s.arg(espanol.toString(resultado.archivos),
                                      espanol.formattedDataSize(
                                          resultado.bytes, 1, QLocale::DataSizeTraditionalFormat)));
    lista += dato(u"Carpeta"_s, rutaHtml(carpetaDe(resultado)));
    return lista + u"</dl>\n"_s;
}

QString secciones(const Resultado &resultado)
{
    if (resultado.secciones.isEmpty())
        return {};
    QString tabla =
        u"<h3>Documentos</h3>\n<table class=\"cuentas\"><thead><tr>"
        u"<th scope=\"col\">Sección</th><th scope=\"col\">Se esperan</th>"
        u"<th scope=\"col\">Hay</th><th scope=\"col\">Buenos</th></tr></thead><tbody>\n"_s;
    for (const Seccion &seccion : resultado.secciones) {
        const bool entera = seccion.buenos >= seccion.esperados && seccion.buenos == seccion.hay;
        tabla += u"<tr%1><th scope=\"row\">%2</th><td>%3</td><td>%4</td><td>%5</td></tr>\n"_s
                     .arg(entera ? QString() : u" class=\"incompleta\""_s, html(seccion.nombre))
                     .arg(seccion.esperados)
                     .arg(seccion.hay)
                     .arg(seccion.buenos);
    }
    return tabla + u"</tbody></table>\n"_s;
}

QString donde(const Hallazgo &hallazgo)
{
    QString lugar;
    if (!hallazgo.archivo.isEmpty())
        lugar += rutaHtml(hallazgo.archivo);
    if (!hallazgo.detalle.isEmpty())
        lugar += (lugar.isEmpty() ? QString() : u"<br>"_s) + html(hallazgo.detalle);
    if (const QString veces = cuantasVeces(hallazgo); !veces.isEmpty())
        lugar += u" (%1)"_s.arg(veces);
    return lugar;
}

QString filas(const DePersona &persona)
{
    QString lineas;
    for (const Hallazgo *hallazgo : persona.hallazgos) {
        // Each row says of whom it is: a table is read row by row, and broken between pages.
        lineas +=
            u"<tr><td><bdi>%1</bdi></td><td>%2<p class=\"lugar\">%3</p></td><td>%4</td></tr>\n"_s
                .arg(persona.nombre.isEmpty() ? u"—"_s : html(persona.nombre),
                     html(hallazgo->regla->texto), donde(*hallazgo),
                     html(hallazgo->regla->queHacer));
    }
    return lineas;
}

QString faltas(const Resultado &resultado)
{
    const std::vector<DeSalon> salones = porSalon(resultado);
    QString partes = salones.empty() ? QString() : u"<h3>Qué falta o está dañado</h3>\n"_s;
    for (const DeSalon &salon : salones) {
        partes +=
            u"<h4>%1</h4>\n<table class=\"faltas\"><thead><tr><th scope=\"col\">Estudiante</th>"
            u"<th scope=\"col\">Qué se encontró</th><th scope=\"col\">Qué hacer</th></tr>"
            u"</thead><tbody>\n"_s.arg(salon.nombre.isEmpty()
                                           ? u"De todo el histórico"_s
                                           : u"Salón <bdi>%1</bdi>"_s.arg(html(salon.nombre)));
        for (const DePersona &persona : salon.personas)
            partes += filas(persona);
        partes += u"</tbody></table>\n"_s;
    }
    return partes;
}

QString listaDeNotas(const Resultado &resultado)
{
    const std::vector<DeRegla> grupos = notas(resultado);
    QString partes =
        grupos.empty()
            ? QString()
            : u"<h3>Notas</h3>\n<p>Solo para saberlo: no le quitan nada al histórico.</p>\n<ul>\n"_s;
    for (const DeRegla &grupo : grupos) {
        partes +=
            u"<li>%1 <em>%2</em>"_s.arg(html(grupo.regla->texto), html(grupo.regla->queHacer));
        QString lugares;
        for (const Hallazgo *hallazgo : grupo.hallazgos) {
            if (const QString lugar = donde(*hallazgo); !lugar.isEmpty())
                lugares += u"<li>"_s + lugar + u"</li>\n"_s;
        }
        partes += lugares.isEmpty() ? u"</li>\n"_s : u"\n<ul>\n"_s + lugares + u"</ul></li>\n"_s;
    }
    return grupos.empty() ? partes : partes + u"</ul>\n"_s;
}

QString seccion(const Resultado &resultado, qsizetype numero)
{
    const bool hayHistorico = resultado.veredicto == Veredicto::Completo
                              || resultado.veredicto == Veredicto::FaltanDocumentos;
    return u"<section id=\"h%1\" aria-labelledby=\"t%1\">\n<h2 id=\"t%1\">Histórico <bdi>%2</bdi></h2>\n"_s
               .arg(numero)
               .arg(html(nombreDe(resultado)))
           + veredicto(resultado)
           + (hayHistorico
                  ? datos(resultado) + secciones(resultado) + faltas(resultado)
                        + listaDeNotas(resultado)
                  : u"<dl>\n"_s + dato(u"Carpeta"_s, rutaHtml(carpetaDe(resultado))) + u"</dl>\n"_s)
           + u"</section>\n"_s;
}

QString indice(const QList<Resultado> &resultados)
{
    if (resultados.size() < 2)
        return {};
    QString lista = u"<nav aria-label=\"Históricos revisados\"><ul>\n"_s;
    for (qsizetype i = 0; i < resultados.size(); ++i)
        lista += u"<li><a href=\"#h%1\"><bdi>%2</bdi></a>: %3</li>\n"_s.arg(
            QString::number(i + 1), html(nombreDe(resultados.at(i))),
            html(titulo(resultados.at(i))));
    return lista + u"</ul></nav>\n"_s;
}

} // namespace

QByteArray enHtml(const QList<Resultado> &resultados, const Sello &sello)
{
    const QString nombre = resultados.size() == 1
                               ? u"Revisión del histórico "_s + html(nombreDe(resultados.first()))
                               : u"Revisión de históricos"_s;
    const QString cuando =
        QLocale(QLocale::Spanish)
            .toString(sello.cuando.toLocalTime(), u"d 'de' MMMM 'de' yyyy, H:mm"_s);
    // The policy is the second lock: nothing of an archive is markup here, and if it were, it
    // could neither run nor fetch.
    QString pagina = u"<!DOCTYPE html>\n<html lang=\"es\">\n<head>\n<meta charset=\"utf-8\">\n"
                     u"<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
                     u"style-src 'unsafe-inline'\">\n"
                     u"<meta name=\"viewport\" content=\"width=device-width\">\n"_s;
    pagina +=
        u"<title>%1</title>\n<style>\n%2</style>\n</head>\n<body>\n<main>\n"_s.arg(nombre, estilo);
    pagina += u"<h1>Revisión de históricos</h1>\n<p class=\"sello\">%1 · %2</p>\n"_s.arg(
        html(cuando), html(sello.programa));
    pagina += indice(resultados);
    for (qsizetype i = 0; i < resultados.size(); ++i)
        pagina += seccion(resultados.at(i), i + 1);
    return (pagina + u"</main>\n</body>\n</html>\n"_s).toUtf8();
}

} // namespace informe
