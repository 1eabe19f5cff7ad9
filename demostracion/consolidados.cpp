#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

const QString estilo = uR"(
@page { size: landscape; }
.cuadro th { padding: 8px 2px 6px; background: #eef2f8; border: 1px solid #c6d0dd; vertical-align: bottom; }
.cuadro th img { display: block; width: 22px; height: 176px; margin: 0 auto; }
.cuadro th.izq { text-align: left; padding: 6px 8px; color: #1f3a68; }
.cuadro td { padding: 4px 3px; border: 1px solid #d5dde7; text-align: center; min-width: 32px; }
.cuadro td.izq { text-align: left; padding: 4px 8px; white-space: nowrap; }
.cuadro tbody tr:nth-child(even) td { background: #f8fafc; }
.cuadro .area, .cuadro tbody tr:nth-child(even) td.area { background: #e3ebf6; font-weight: 600; }
.cuadro th.suma, .cuadro td.suma, .cuadro tbody tr:nth-child(even) td.suma { background: #fbf4dc; font-weight: 700; }
)"_s;

struct Columna {
    QString rotulo; // what follows "txt="
    QStringView clase;
};

// The text stands in the address as it is, blanks and accents too: an archive names the label's
// file after it. Hyphens are blanks there.
QString rotulo(const Contexto &c, const Columna &columna)
{
    return u"<th class=\""_s + columna.clase.toString() + u"\"><img src=\""_s + c.base
           + u"/imgTXT.php?txt="_s + columna.rotulo + u"\" alt=\"\"></th>"_s;
}

QString sinGuion(QString nombre)
{
    return nombre.replace(u'-', u' ');
}

QString celda(const QString &valor, QStringView clase = u"")
{
    return u"<td class=\""_s + clase.toString() + u"\">"_s + valor + u"</td>"_s;
}

QString celdaNota(double valor, QStringView clase = u"")
{
    return celda(
        valor < 3.0 ? u"<span class=\"bajo\">"_s + nota(valor) + u"</span>"_s : nota(valor), clase);
}

// An area has a column of its own when it says more than its one subject.
bool conColumna(const Escuela &escuela, const AreaDemo &area)
{
    return area.materias.size() > 1
           || sinGuion(area.nombre) != sinGuion(escuela.materias.at(area.materias.first()).nombre);
}

QString cuadro(const Contexto &c, const SalonDemo &salon, const QString &titulo,
               const QList<Columna> &columnas, const QString &filas)
{
    QString cabeza = u"<tr><th class=\"izq\">N.º</th><th class=\"izq\">Código</th>"
                     "<th class=\"izq\">Apellidos y nombres</th>"_s;
    for (const Columna &columna : columnas)
        cabeza += rotulo(c, columna);
    const QString cuerpo =
        u"<div class=\"hoja ancha\"><p class=\"navega\"><a href=\"../../index.html\">"
        "Sedes y salones</a> &rsaquo; <a href=\"../salones/%1.html\">%2</a></p>"_s.arg(
            salon.id, texto(salon.nombre))
        + membrete(c, Membrete::Escrito, titulo)
        + datos({{u"Salón"_s, salon.nombre},
                 {u"Sede"_s, salon.sede},
                 {u"Año lectivo"_s, c.ajuste(u"ANOACTUAL"_s)},
                 {u"Dirección de grupo"_s, salon.director}},
                2)
        + u"<table class=\"cuadro\"><thead>"_s + cabeza + u"</tr></thead>\r\n<tbody>\r\n"_s + filas
        + u"</tbody></table></div>"_s;
    return pagina(titulo + u" - "_s + salon.nombre, estilo, cuerpo);
}

QString inicioFila(int numero, const AlumnoDemo &alumno)
{
    return u"<tr>"_s + celda(QString::number(numero)) + celda(alumno.id)
           + celda(texto(alumno.nombre), u"izq");
}

QString filaNotas(const Contexto &c, int numero, const AlumnoDemo &alumno)
{
    QString fila = inicioFila(numero, alumno);
    for (const AreaDemo &area : areas(c.escuela)) {
        for (const int m : area.materias)
            fila += celdaNota(definitiva(alumno, m));
        if (conColumna(c.escuela, area))
            fila += celdaNota(definitivaArea(alumno, area), u"area");
    }
    if (materiasDictadas(c.escuela) > 0)
        fila += celda(desempeno(promedio(alumno)), u"suma");
    return fila + celda(nota(promedio(alumno)), u"suma")
           + celda(QString::number(puesto(c.escuela, alumno)), u"suma")
           + celda(QString::number(perdidas(alumno)), u"suma")
           + celda(QString::number(totalFallas(alumno)), u"suma") + u"</tr>\r\n"_s;
}

QString filaFallas(const Contexto &c, int numero, const AlumnoDemo &alumno)
{
    QString fila = inicioFila(numero, alumno);
    for (const AreaDemo &area : areas(c.escuela))
        for (const int m : area.materias)
            fila += celda(alumno.fallas.at(m) == 0 ? u"&middot;"_s
                                                   : QString::number(alumno.fallas.at(m)));
    return fila + celda(QString::number(totalFallas(alumno)), u"suma") + u"</tr>\r\n"_s;
}

} // namespace

namespace demo {

QString consolidadoNotas(const Contexto &c, const SalonDemo &salon)
{
    QList<Columna> columnas;
    for (const AreaDemo &area : areas(c.escuela)) {
        for (const int m : area.materias)
            columnas.append({sinGuion(c.escuela.materias.at(m).nombre), u""});
        if (conColumna(c.escuela, area))
            columnas.append({sinGuion(area.nombre), u"area"});
    }
    // Kept in an archive as NOTADEFINITIVA, the school's last subject.
    if (materiasDictadas(c.escuela) > 0)
        columnas.append({u"NOTA:DEFINITIVA"_s, u"suma"});
    for (const QStringView fijo : {QStringView(u"Promedio"), QStringView(u"Puesto"),
                                   QStringView(u"Nro Perdidas"), QStringView(u"Total Fallas")})
        columnas.append({fijo.toString(), u"suma"});

    QString filas;
    int numero = 0;
    for (const AlumnoDemo &alumno : alumnosDe(c.escuela, salon.id))
        filas += filaNotas(c, ++numero, alumno);
    return cuadro(c, salon, u"Consolidado de calificaciones"_s, columnas, filas);
}

QString consolidadoFallas(const Contexto &c, const SalonDemo &salon)
{
    QList<Columna> columnas;
    for (const AreaDemo &area : areas(c.escuela))
        for (const int m : area.materias)
            columnas.append({sinGuion(c.escuela.materias.at(m).nombre), u""});
    columnas.append({u"Total Fallas"_s, u"suma"});

    QString filas;
    int numero = 0;
    for (const AlumnoDemo &alumno : alumnosDe(c.escuela, salon.id))
        filas += filaFallas(c, ++numero, alumno);
    return cuadro(c, salon, u"Consolidado de inasistencias"_s, columnas, filas);
}

} // namespace demo
