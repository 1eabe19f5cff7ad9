#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

// The script that is put at the end of a stored report card brings no library, and looks for the
// school's details one folder short. So the page brings both, as a page that is read on the service
// does: the library from the service, the details written into it.
QString guiones(const Contexto &c)
{
    QString html = u"<script src=\""_s + c.base + u"/jscript/jquery.tools.min.js\"></script>\r\n"_s
                   + u"<script>"_s;
    for (const char *campo : {"MICOLEGIO", "SLOGAN", "CDANE", "DIRECCION", "TELEFONO"}) {
        const QString nombre = QLatin1String(campo);
        // Escaped for HTML, which is what the script puts it into, it holds no quotes.
        const QString valor = texto(c.ajuste(nombre)).replace(u'\\', u"\\\\"_s);
        html += u"var "_s + nombre.toLower() + u" = \""_s + valor + u"\";"_s;
    }
    return html + u"</script>\r\n"_s;
}

const QString estiloBoletin = uR"(
.observa { margin-top: 16px; padding: 10px 14px; border: 1px solid #d5dde7; min-height: 66px; }
.observa b { color: #1f3a68; }
.tarjetas { display: grid; grid-template-columns: 1fr 1fr; gap: 10px; }
.tarjeta { padding: 9px 14px; border: 1px solid #d5dde7; border-left: 5px solid #2b7a5b; border-radius: 3px;
  break-inside: avoid; }
.tarjeta.roja { border-left-color: #b3261e; }
.tarjeta .valor { float: right; font-size: 22px; font-weight: 700; color: #1f3a68; }
.tarjeta small { display: block; color: #53606f; margin-right: 3em; }
.planilla td { height: 25px; border: 1px solid #b9c4d1; padding: 2px 7px; }
.planilla th { border: 1px solid #b9c4d1; padding: 5px 4px; background: #eef2f8; color: #1f3a68; font-size: 11.5px; }
.planilla td.casilla { width: 42px; }
)"_s;

QString logro(double valor)
{
    const QString d = desempeno(valor);
    if (d == u"Superior"_s)
        return u"Supera con creatividad los logros propuestos y apoya a sus compañeros."_s;
    if (d == u"Alto"_s)
        return u"Alcanza los logros propuestos y participa con interés en clase."_s;
    if (d == u"Básico"_s)
        return u"Alcanza los logros mínimos; debe reforzar la práctica en casa."_s;
    return u"Presenta dificultades; requiere plan de apoyo y acompañamiento familiar."_s;
}

QString tabla(const Contexto &c, const AlumnoDemo &alumno, int periodo)
{
    QString html =
        u"<table class=\"notas\"><thead><tr><th class=\"izq\">Asignatura</th><th>I. H.</th>"_s;
    for (int p = 1; p <= periodo; ++p)
        html += u"<th>P%1</th>"_s.arg(p);
    html += u"<th>Acumulado</th><th class=\"izq\">Valoración</th></tr></thead>\r\n<tbody>\r\n"_s;
    for (int m = 0; m < materiasDictadas(c.escuela); ++m) {
        html += u"<tr><td class=\"izq\">%1</td><td>%2</td>"_s
                    .arg(texto(c.escuela.materias.at(m).nombre))
                    .arg(c.escuela.materias.at(m).horas);
        for (int p = 0; p < periodo; ++p)
            html += u"<td>%1</td>"_s.arg(nota(alumno.notas.at(m).at(p)));
        const double valor = acumulada(alumno, m, periodo);
        html += u"<td class=\"%1\">%2</td><td class=\"izq\">%3. %4</td></tr>\r\n"_s.arg(
            valor < 3.0 ? u"bajo"_s : u"def"_s, nota(valor), desempeno(valor), logro(valor));
    }
    return html + u"</tbody></table>\r\n"_s;
}

QString tarjetas(const Contexto &c, const AlumnoDemo &alumno, int periodo)
{
    QString html = u"<div class=\"tarjetas\">\r\n"_s;
    for (int m = 0; m < materiasDictadas(c.escuela); ++m) {
        const MateriaDemo &materia = c.escuela.materias.at(m);
        const double valor = alumno.notas.at(m).at(periodo - 1);
        html += u"<div class=\"tarjeta%1\"><span class=\"valor\">%2</span><b>%3</b><small>Docente: "
                u"%4 &middot; "
                "acumulado %5</small>%6. %7</div>\r\n"_s.arg(
                    valor < 3.0 ? u" roja"_s : QString(), nota(valor), texto(materia.nombre),
                    texto(materia.docente), nota(acumulada(alumno, m, periodo)), desempeno(valor),
                    logro(valor));
    }
    return html + u"</div>\r\n"_s;
}

} // namespace

QString demo::boletin(const Contexto &c, const AlumnoDemo &alumno, int periodo, int clase)
{
    const SalonDemo *salon = buscarSalon(c.escuela, alumno.salon);
    const QString cuerpo =
        u"<div class=\"hoja\">"_s
        + membrete(c, Membrete::TodoPorGuion, u"Informe académico - Periodo %1"_s.arg(periodo))
        + datos({{u"Estudiante"_s, alumno.nombre},
                 {u"Código"_s, alumno.id},
                 {u"Grado y grupo"_s, salon->nombre},
                 {u"Sede"_s, salon->sede},
                 {u"Dirección de grupo"_s, salon->director},
                 {u"Año lectivo"_s, c.ajuste(u"ANOACTUAL"_s)}},
                2)
        + (clase == 2 ? tarjetas(c, alumno, periodo) : tabla(c, alumno, periodo))
        + u"<div class=\"observa\"><b>Observaciones.</b> Inasistencias acumuladas: %1. Se invita a "
          u"la familia a la "
          "entrega de informes y a acompañar el plan de mejoramiento.</div>"_s.arg(
              totalFallas(alumno))
        + u"<div class=\"firmas\"><div class=\"firma\"><div class=\"raya\">%1</div><div "
          u"class=\"cargo\">Dirección de "
          "grupo</div></div><div class=\"firma\"><div class=\"raya\">%2</div><div "
          "class=\"cargo\">Acudiente</div>"
          "</div></div></div>"_s.arg(texto(salon->director), texto(alumno.acudiente));
    return pagina(u"Periodo %1 - %2"_s.arg(periodo).arg(alumno.nombre), estiloBoletin, cuerpo,
                  guiones(c));
}

QString demo::planillaAsignatura(const Contexto &c, const SalonDemo &salon, int materia)
{
    const MateriaDemo &una = c.escuela.materias.at(materia);
    QString filas;
    int numero = 0;
    for (const AlumnoDemo &alumno : alumnosDe(c.escuela, salon.id)) {
        filas += u"<tr><td>%1</td><td>%2</td>"_s.arg(++numero).arg(texto(alumno.nombre));
        for (int i = 0; i < 9; ++i)
            filas += u"<td class=\"casilla\"></td>"_s;
        filas += u"</tr>\r\n"_s;
    }
    const QString cuerpo =
        u"<div class=\"hoja ancha\">"_s
        + membrete(c, Membrete::Escrito, u"Planilla de trabajo - "_s + una.nombre)
        + datos({{u"Salón"_s, salon.nombre},
                 {u"Sede"_s, salon.sede},
                 {u"Docente"_s, una.docente},
                 {u"Área"_s, una.area},
                 {u"Intensidad semanal"_s, u"%1 horas"_s.arg(una.horas)},
                 {u"Año lectivo"_s, c.ajuste(u"ANOACTUAL"_s)}},
                2)
        + u"<table class=\"planilla\"><thead><tr><th>N.º</th><th>Apellidos y nombres</th><th "
          u"colspan=\"6\">"
          "Actividades</th><th>Evaluación</th><th>Definitiva</th><th>Fallas</th></tr></thead>\r\n<tbody>\r\n"_s
        + filas + u"</tbody></table></div>"_s;
    return pagina(u"Planilla - "_s + una.nombre, estiloBoletin, cuerpo);
}
