#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {

const QString estiloIndice = uR"(
.salones { display: grid; grid-template-columns: repeat(auto-fill, minmax(220px, 1fr)); gap: 14px; }
.salones a { display: block; padding: 14px 16px; border: 1px solid #d5dde7; border-left: 4px solid #c9a227;
  border-radius: 4px; color: inherit; background: #fbfcfe; }
.salones a:hover { text-decoration: none; background: #eef3fa; }
.salones b { display: block; font-size: 15px; color: #1f3a68; }
.salones small { color: #53606f; }
)"_s;

// The arrows are the archive's own copies: these addresses are relative from the start.
const QString estiloListado = uR"(
.tablesorter th { padding: 8px 20px 8px 8px; background: #1f3a68; color: #fff; text-align: left; }
.tablesorter .tablesorter-header { cursor: pointer; }
.tablesorter .tablesorter-header .tablesorter-header-inner { padding-right: 16px;
  background: url(../images/bg.gif) no-repeat right center; display: inline-block; }
.tablesorter .tablesorter-headerAsc .tablesorter-header-inner { background-image: url(../images/asc.gif); }
.tablesorter .tablesorter-headerDesc .tablesorter-header-inner { background-image: url(../images/desc.gif); }
.tablesorter .sorter-false .tablesorter-header-inner { background: none; }
.tablesorter .sorter-false { cursor: default; }
.tablesorter .tablesorter-header-inner { filter: invert(1); color: #000; }
.tablesorter td { padding: 7px 8px; border-bottom: 1px solid #dde3ea; }
.tablesorter tbody tr:hover td { background: #f3f6fb; }
.num { width: 1%; white-space: nowrap; color: #53606f; }
.docs a { display: inline-block; margin-right: 14px; }
)"_s;

const QString guionListado = uR"(<script src="../jscript/jquery.tools.min.js"></script>
<script src="../jscript/jquery.tablesorter.min.js"></script>
<script>
$(document).ready(function() { $('#listado').tablesorter({ sortLocaleCompare: true }); });
</script>
)"_s;

} // namespace

namespace demo {

QString indiceSalones(const Contexto &c)
{
    QMap<QString, QString> sedes;
    for (const SalonDemo &salon : c.escuela.salones)
        sedes[salon.sede] +=
            u"<a href=\"archivos/salones/%1.html\"><b>%2</b><small>%3 estudiantes"
            "<br>Dirección de grupo:<br>%4</small></a>\r\n"_s.arg(salon.id, texto(salon.nombre))
                .arg(alumnosDe(c.escuela, salon.id).size())
                .arg(texto(salon.director));
    QString cuerpo = u"<div class=\"hoja\">"_s
                     + membrete(c, Membrete::Escrito,
                                u"Archivo histórico del año lectivo "_s + c.ajuste(u"ANOACTUAL"_s));
    for (auto it = sedes.cbegin(); it != sedes.cend(); ++it)
        cuerpo += u"<h2>"_s + texto(it.key()) + u"</h2>\r\n<div class=\"salones\">\r\n"_s
                  + it.value() + u"</div>\r\n"_s;
    return pagina(
        u"Sedes y salones"_s, estiloIndice,
        cuerpo
            + u"<p class=\"pie\">Elija un salón para ver sus estudiantes y sus documentos.</p></div>"_s);
}

QString listaSalon(const Contexto &c, const SalonDemo &salon)
{
    QString filas;
    int numero = 0;
    for (const AlumnoDemo &alumno : alumnosDe(c.escuela, salon.id))
        filas +=
            u"<tr><td class=\"num\">%1</td><td class=\"num\">%2</td><td>%3</td><td class=\"docs\">"
            "<a href=\"../infoFinal/%2.html\">Informe final</a>"
            "<a href=\"../certificados/%2.html\">Certificado</a>"
            "<a href=\"../matriculas/%2.html\">Matrícula</a>"
            "<a href=\"../infoAlumnos/%2.html\">Información</a></td></tr>\r\n"_s.arg(++numero)
                .arg(alumno.id, texto(alumno.nombre));
    const QString cuerpo =
        u"<div class=\"hoja\"><p class=\"navega\"><a href=\"../../index.html\">"
        "&larr; Sedes y salones</a></p>"_s
        + membrete(c, Membrete::Escrito, u"Estudiantes de "_s + salon.nombre)
        + datos({{u"Sede"_s, salon.sede},
                 {u"Año lectivo"_s, c.ajuste(u"ANOACTUAL"_s)},
                 {u"Dirección de grupo"_s, salon.director},
                 {u"Estudiantes"_s, QString::number(numero)}},
                2)
        + u"<p><b>Consolidados del salón:</b> &nbsp; <a "
          u"href=\"../consolidadoN/%1.html\">Calificaciones</a>"
          " &nbsp;&middot;&nbsp; <a href=\"../consolidadoF/%1.html\">Inasistencias</a></p>\r\n"_s
              .arg(salon.id)
        + u"<table class=\"tablesorter\" id=\"listado\"><thead><tr><th>N.º</th><th>Código</th>"
          "<th>Apellidos y nombres</th><th class=\"sorter-false\">Documentos</th></tr></thead>\r\n<tbody>\r\n"_s
        + filas + u"</tbody></table></div>"_s;
    return pagina(salon.nombre, estiloListado, cuerpo, guionListado);
}

} // namespace demo
