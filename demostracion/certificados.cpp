#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

const QString estilo = uR"(
.hoja { position: relative; padding: 46px 60px; font-family: Georgia, "Liberation Serif", serif; font-size: 14.5px;
  line-height: 1.65; border-top: 0; }
.hoja::before { content: ""; position: absolute; inset: 14px; border: 3px double #c9a227; pointer-events: none; }
.folio { text-align: right; font-size: 13px; color: #53606f; margin: 0 0 8px; }
.hacen { margin: 18px 0; text-align: center; font-weight: bold; letter-spacing: 5px; }
p.prosa { text-align: justify; }
.dos { columns: 2; column-gap: 28px; margin: 14px 0; }
.dos div { display: flex; justify-content: space-between; padding: 3px 4px; border-bottom: 1px dotted #9aa7b5;
  break-inside: avoid; }
.lista { margin: 12px 0 12px 34px; padding: 0; columns: 1; }
@media print { .hoja { padding: 30px 40px; } }
)"_s;

QString enLetras(double valor)
{
    static const QStringList cifras = {u"CERO"_s,  u"UNO"_s,  u"DOS"_s,   u"TRES"_s, u"CUATRO"_s,
                                       u"CINCO"_s, u"SEIS"_s, u"SIETE"_s, u"OCHO"_s, u"NUEVE"_s};
    const int decimas = static_cast<int>(std::lround(valor * 10));
    return cifras.at(decimas / 10) + u" PUNTO "_s + cifras.at(decimas % 10);
}

QString cuadroCompleto(const Contexto &c, const AlumnoDemo &alumno)
{
    QString html = u"<table class=\"notas\"><thead><tr><th "
                   u"class=\"izq\">Asignatura</th><th>Intensidad horaria</th>"
                   "<th>Calificación</th><th>Desempeño</th></tr></thead>\r\n<tbody>\r\n"_s;
    for (int m = 0; m < materiasDictadas(c.escuela); ++m) {
        const MateriaDemo &materia = c.escuela.materias.at(m);
        html += u"<tr><td class=\"izq\">%1</td><td>%2</td><td>%3</td><td>%4</td></tr>\r\n"_s.arg(
            texto(materia.nombre), QString::number(materia.horas), nota(definitiva(alumno, m)),
            desempeno(definitiva(alumno, m)));
    }
    return html + u"</tbody></table>\r\n"_s;
}

QString dosColumnas(const Contexto &c, const AlumnoDemo &alumno)
{
    QString html = u"<div class=\"dos\">\r\n"_s;
    for (const AreaDemo &area : areas(c.escuela))
        html += u"<div><span>%1</span><b>%2 &nbsp;%3</b></div>\r\n"_s.arg(
            texto(area.nombre), nota(definitivaArea(alumno, area)),
            desempeno(definitivaArea(alumno, area)));
    return html + u"</div>\r\n"_s;
}

QString enProsa(const Contexto &c, const AlumnoDemo &alumno)
{
    QString html = u"<ul class=\"lista\">\r\n"_s;
    for (const AreaDemo &area : areas(c.escuela)) {
        const double total = definitivaArea(alumno, area);
        html += u"<li>%1: %2 (%3), desempeño %4</li>\r\n"_s.arg(
            texto(area.nombre), enLetras(total), nota(total), desempeno(total).toLower());
    }
    return html + u"</ul>\r\n"_s;
}

} // namespace

QString demo::certificado(const Contexto &c, const AlumnoDemo &alumno, int clase)
{
    const SalonDemo *salon = buscarSalon(c.escuela, alumno.salon);
    const QString notas = clase == 3   ? enProsa(c, alumno)
                          : clase == 2 ? dosColumnas(c, alumno)
                                       : cuadroCompleto(c, alumno);
    const QString fin = promovido(alumno) ? u"fue <b>PROMOVIDO(A)</b> al grado siguiente"_s
                                          : u"<b>NO FUE PROMOVIDO(A)</b> y debe repetir el grado"_s;
    const QString titulo = clase == 3   ? u"Constancia final de estudios"_s
                           : clase == 2 ? u"Certificado final por áreas"_s
                                        : u"Certificado final de calificaciones"_s;
    // The folio marker stays as it is until somebody numbers the certificate, or blanks it.
    const QString cuerpo =
        u"<div class=\"hoja\"><p class=\"folio\">Folio: ®folio®</p>"_s
        + membrete(c, Membrete::PorGuion, titulo)
        + u"<p class=\"prosa\">Quienes suscriben, Rectoría y Secretaría de la institución, con "
          u"base en los libros "
          "reglamentarios del año lectivo %1,</p><p class=\"hacen\">CERTIFICAN</p>"
          "<p class=\"prosa\">Que <b>%2</b>, con documento de identidad n.º <b>%3</b>, cursó en "
          "esta institución "
          "el grado <b>%4</b> (%5), y obtuvo las siguientes valoraciones definitivas:</p>\r\n"_s
              .arg(c.ajuste(u"ANOACTUAL"_s), texto(alumno.nombre), alumno.documento,
                   texto(salon->nombre), texto(salon->sede))
        + notas
        + u"<p class=\"prosa\">Con un promedio general de <b>%1</b> (%2), el estudiante %3.</p>"
          "<p class=\"prosa\">Se expide a solicitud del interesado, en noviembre de %4.</p>\r\n"_s
              .arg(nota(promedio(alumno)), desempeno(promedio(alumno)).toLower(), fin,
                   c.ajuste(u"ANOACTUAL"_s))
        + firmas(c, Membrete::PorGuion, true) + u"</div>"_s;
    return pagina(u"Certificado - "_s + alumno.nombre, estilo, cuerpo);
}
