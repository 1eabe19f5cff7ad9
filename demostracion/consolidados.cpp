// SPDX-License-Identifier: MIT
#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"
#include "demostracion/plantilla.h"

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

// `rotulo`: what follows "txt=" in the address of its heading. Hyphens are blanks there.
QVariantMap columna(const QString &rotulo, const QString &clase = {})
{
    return {{u"rotulo"_s, rotulo}, {u"clase"_s, clase}};
}

QString sinGuion(QString nombre)
{
    return nombre.replace(u'-', u' ');
}

QVariantMap celda(const QVariant &valor, const QString &clase = {})
{
    return {{u"valor"_s, valor}, {u"clase"_s, clase}, {u"bajo"_s, false}};
}

QVariantMap celdaNota(double valor, const QString &clase = {})
{
    QVariantMap celda = deNota(valor);
    celda[u"clase"_s] = clase;
    return celda;
}

// An area has a column of its own when it says more than its one subject.
bool conColumna(const Escuela &escuela, const AreaDemo &area)
{
    return area.materias.size() > 1
           || sinGuion(area.nombre) != sinGuion(escuela.materias.at(area.materias.first()).nombre);
}

// Of one student, those that follow the name.
using Celdas = QVariantList(const Contexto &, const AlumnoDemo &);

QString cuadro(const Contexto &c, const SalonDemo &salon, const QString &titulo,
               const QVariantList &columnas, Celdas celdas)
{
    QVariantList filas = listaAlumnos(c, salon);
    const QList<AlumnoDemo> alumnos = alumnosDe(c.escuela, salon.id);
    for (qsizetype i = 0; i < filas.size(); ++i) {
        QVariantMap fila = filas.at(i).toMap();
        fila[u"celdas"_s] = celdas(c, alumnos.at(i));
        filas[i] = fila;
    }
    QVariantMap valores = deSalon(c, Membrete::Escrito, salon);
    valores[u"titulo"_s] = titulo;
    valores[u"columnas"_s] = columnas;
    valores[u"filas"_s] = filas;
    return llenar(u"consolidado"_s, valores);
}

QVariantList celdasNotas(const Contexto &c, const AlumnoDemo &alumno)
{
    QVariantList celdas;
    for (const AreaDemo &area : areas(c.escuela)) {
        for (const int m : area.materias)
            celdas.append(celdaNota(definitiva(alumno, m)));
        if (conColumna(c.escuela, area))
            celdas.append(celdaNota(definitivaArea(alumno, area), u"area"_s));
    }
    if (materiasDictadas(c.escuela) > 0)
        celdas.append(celda(desempeno(promedio(alumno)), u"suma"_s));
    celdas.append(celda(nota(promedio(alumno)), u"suma"_s));
    celdas.append(celda(puesto(c.escuela, alumno), u"suma"_s));
    celdas.append(celda(perdidas(alumno), u"suma"_s));
    celdas.append(celda(totalFallas(alumno), u"suma"_s));
    return celdas;
}

QVariantList celdasFallas(const Contexto &c, const AlumnoDemo &alumno)
{
    QVariantList celdas;
    for (const AreaDemo &area : areas(c.escuela))
        for (const int m : area.materias)
            celdas.append(
                celda(alumno.fallas.at(m) == 0 ? u"·"_s : QString::number(alumno.fallas.at(m))));
    celdas.append(celda(totalFallas(alumno), u"suma"_s));
    return celdas;
}

} // namespace

namespace demo {

QString consolidadoNotas(const Contexto &c, const SalonDemo &salon)
{
    QVariantList columnas;
    for (const AreaDemo &area : areas(c.escuela)) {
        for (const int m : area.materias)
            columnas.append(columna(sinGuion(c.escuela.materias.at(m).nombre)));
        if (conColumna(c.escuela, area))
            columnas.append(columna(sinGuion(area.nombre), u"area"_s));
    }
    // Kept in an archive as NOTADEFINITIVA, the school's last subject.
    if (materiasDictadas(c.escuela) > 0)
        columnas.append(columna(u"NOTA:DEFINITIVA"_s, u"suma"_s));
    for (const QString &fijo : {u"Promedio"_s, u"Puesto"_s, u"Nro Perdidas"_s, u"Total Fallas"_s})
        columnas.append(columna(fijo, u"suma"_s));
    return cuadro(c, salon, u"Consolidado de calificaciones"_s, columnas, celdasNotas);
}

QString consolidadoFallas(const Contexto &c, const SalonDemo &salon)
{
    QVariantList columnas;
    for (const AreaDemo &area : areas(c.escuela))
        for (const int m : area.materias)
            columnas.append(columna(sinGuion(c.escuela.materias.at(m).nombre)));
    columnas.append(columna(u"Total Fallas"_s, u"suma"_s));
    return cuadro(c, salon, u"Consolidado de inasistencias"_s, columnas, celdasFallas);
}

} // namespace demo
