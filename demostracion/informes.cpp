#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

const QString estilo = uR"(
.cierre { display: flex; align-items: center; gap: 26px; margin-top: 18px; padding: 12px 18px;
  border: 1px solid #d5dde7; background: #f6f8fb; }
.cierre img { width: 190px; }
.cierre p { margin: 4px 0; }
)"_s;

const QString estiloBarras = uR"(
.hoja { border-top-color: #2b7a5b; }
.bloque { margin: 0 0 10px; border: 1px solid #d5dde7; break-inside: avoid; }
.bloque .titulo { display: flex; justify-content: space-between; padding: 5px 12px; background: #e5f1ec;
  color: #1d5a43; font-weight: 700; }
.bloque .fila { display: grid; grid-template-columns: 210px 150px 1fr 44px 84px 70px; gap: 10px;
  align-items: center; padding: 4px 12px; border-top: 1px solid #edf1f5; }
.bloque .periodos { color: #53606f; letter-spacing: .5px; }
.barra { height: 8px; background: #e6ebf0; border-radius: 4px; overflow: hidden; }
.barra i { display: block; height: 8px; background: #2b7a5b; }
.barra i.roja { background: #b3261e; }
)"_s;

QString celdaNota(double valor)
{
    return u"<td%1>%2</td>"_s.arg(valor < 3.0 ? u" class=\"bajo\""_s : QString(), nota(valor));
}

QString identidad(const Contexto &c, const AlumnoDemo &alumno)
{
    const SalonDemo *salon = buscarSalon(c.escuela, alumno.salon);
    return datos({{u"Estudiante"_s, alumno.nombre},
                  {u"Código"_s, alumno.id},
                  {u"Documento"_s, alumno.documento},
                  {u"Grado y grupo"_s, salon->nombre},
                  {u"Sede"_s, salon->sede},
                  {u"Año lectivo"_s, c.ajuste(u"ANOACTUAL"_s)}},
                 2);
}

// One stamp, once: an archive makes only the first occurrence of its address local.
QString cierre(const Contexto &c, const AlumnoDemo &alumno)
{
    const bool pasa = promovido(alumno);
    return u"<div class=\"cierre\"><img src=\"%1/images/%2.png\" alt=\"%3\"><div>"_s.arg(
               c.base, pasa ? u"promovido"_s : u"reprobado"_s,
               pasa ? u"Promovido"_s : u"Reprobado"_s)
           + u"<p>Promedio general <b>%1</b> (%2) &nbsp; Puesto en el grupo <b>%3</b></p>"_s
                 .arg(nota(promedio(alumno)), desempeno(promedio(alumno)))
                 .arg(puesto(c.escuela, alumno))
           + u"<p>Asignaturas perdidas <b>%1</b> &nbsp; Inasistencias del año <b>%2</b></p>"_s
                 .arg(perdidas(alumno))
                 .arg(totalFallas(alumno))
           + u"<p>%1</p></div></div>\r\n"_s.arg(
               pasa
                   ? u"La Comisión de Evaluación y Promoción lo declara promovido al grado siguiente."_s
                   : u"La Comisión de Evaluación y Promoción determina que debe repetir el grado."_s);
}

QString tabla(const Contexto &c, const AlumnoDemo &alumno)
{
    QString html =
        u"<table class=\"notas\"><thead><tr><th class=\"izq\">Área y asignatura</th><th>I. H.</th>"
        "<th>P1</th><th>P2</th><th>P3</th><th>P4</th><th>Definitiva</th><th>Desempeño</th>"
        "<th>Fallas</th></tr></thead>\r\n<tbody>\r\n"_s;
    for (const AreaDemo &area : areas(c.escuela)) {
        const double total = definitivaArea(alumno, area);
        html +=
            u"<tr class=\"area\"><td class=\"izq\" colspan=\"6\">%1</td><td>%2</td><td>%3</td><td></td></tr>\r\n"_s
                .arg(texto(area.nombre), nota(total), desempeno(total));
        for (const int m : area.materias) {
            const MateriaDemo &materia = c.escuela.materias.at(m);
            html += u"<tr><td class=\"izq\">&emsp;%1</td><td>%2</td>"_s.arg(texto(materia.nombre))
                        .arg(materia.horas);
            for (const double valor : alumno.notas.at(m))
                html += celdaNota(valor);
            const double final = definitiva(alumno, m);
            html += celdaNota(final)
                    + u"<td>%1</td><td>%2</td></tr>\r\n"_s.arg(desempeno(final))
                          .arg(alumno.fallas.at(m));
        }
    }
    return html + u"</tbody></table>\r\n"_s;
}

QString bloques(const Contexto &c, const AlumnoDemo &alumno)
{
    QString html;
    for (const AreaDemo &area : areas(c.escuela)) {
        const double total = definitivaArea(alumno, area);
        html +=
            u"<div class=\"bloque\"><div class=\"titulo\"><b>%1</b><b>%2 &middot; %3</b></div>\r\n"_s
                .arg(texto(area.nombre), nota(total), desempeno(total));
        for (const int m : area.materias) {
            QStringList periodos;
            for (const double valor : alumno.notas.at(m))
                periodos.append(nota(valor));
            const double final = definitiva(alumno, m);
            html +=
                u"<div class=\"fila\"><div>%1</div><div class=\"periodos\">%2</div><div "
                u"class=\"barra\">"
                "<i%3 style=\"width:%4%\"></i></div><b%5>%6</b><div>%7</div><div>%8</div></div>\r\n"_s
                    .arg(texto(c.escuela.materias.at(m).nombre), periodos.join(u" | "_s),
                         final < 3.0 ? u" class=\"roja\""_s : QString(),
                         QString::number(qRound(final * 20)),
                         final < 3.0 ? u" class=\"bajo\""_s : QString(), nota(final),
                         desempeno(final),
                         alumno.fallas.at(m) == 1 ? u"1 falla"_s
                                                  : u"%1 fallas"_s.arg(alumno.fallas.at(m)));
        }
        html += u"</div>\r\n"_s;
    }
    return html;
}

} // namespace

QString demo::informeFinal(const Contexto &c, const AlumnoDemo &alumno, int clase)
{
    const bool segunda = clase == 2;
    const QString cuerpo = u"<div class=\"hoja\">"_s
                           + membrete(c, Membrete::PorGuion,
                                      segunda ? u"Informe final de desempeño por áreas"_s
                                              : u"Informe final de calificaciones"_s)
                           + identidad(c, alumno)
                           + (segunda ? bloques(c, alumno) : tabla(c, alumno)) + cierre(c, alumno)
                           + firmas(c, Membrete::PorGuion, true)
                           + u"<p class=\"pie\">Escala: Superior 4.6 a 5.0 &middot; Alto 4.0 a 4.5 "
                             u"&middot; Básico 3.0 a 3.9 "
                             "&middot; Bajo 1.0 a 2.9</p></div>"_s;
    return pagina(u"Informe final - "_s + alumno.nombre, segunda ? estilo + estiloBarras : estilo,
                  cuerpo);
}
