// SPDX-License-Identifier: MIT
#include "demostracion/valores.h"

#include "demostracion/calificaciones.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

QString enLetras(double valor)
{
    static const QStringList cifras = {u"CERO"_s,  u"UNO"_s,  u"DOS"_s,   u"TRES"_s, u"CUATRO"_s,
                                       u"CINCO"_s, u"SEIS"_s, u"SIETE"_s, u"OCHO"_s, u"NUEVE"_s};
    const int decimas = static_cast<int>(std::lround(valor * 10));
    return cifras.at(decimas / 10) + u" PUNTO "_s + cifras.at(decimas % 10);
}

QVariantMap deMateria(const MateriaDemo &materia, const AlumnoDemo &alumno, int m)
{
    QVariantList notas;
    QStringList periodos;
    for (const double valor : alumno.notas.at(m)) {
        notas.append(deNota(valor));
        periodos.append(nota(valor));
    }
    const double final = definitiva(alumno, m);
    const int fallas = alumno.fallas.at(m);
    return {{u"nombre"_s, materia.nombre},
            {u"horas"_s, materia.horas},
            {u"docente"_s, materia.docente},
            {u"notas"_s, notas},
            {u"periodos"_s, periodos.join(u" | "_s)},
            {u"definitiva"_s, deNota(final)},
            {u"porcentaje"_s, qRound(final * 20)},
            {u"fallas"_s, fallas},
            {u"unaFalla"_s, fallas == 1}};
}

} // namespace

namespace demo {

QVariantMap deColegio(const Contexto &c, Membrete manera)
{
    const auto ajuste = [&](const QString &campo, bool escrito) {
        return escrito ? c.escuela.ajustes.value(campo) : QString();
    };
    const bool conNombre = manera != Membrete::TodoPorGuion;
    const bool escrito = manera == Membrete::Escrito;
    return {{u"base"_s, c.base},
            {u"colegio"_s, c.escuela.idColegio},
            {u"anio"_s, c.escuela.ajustes.value(u"ANOACTUAL"_s)},
            {u"MICOLEGIO"_s, ajuste(u"MICOLEGIO"_s, conNombre)},
            {u"SLOGAN"_s, ajuste(u"SLOGAN"_s, conNombre)},
            {u"CDANE"_s, ajuste(u"CDANE"_s, escrito)},
            {u"DIRECCION"_s, ajuste(u"DIRECCION"_s, escrito)},
            {u"TELEFONO"_s, ajuste(u"TELEFONO"_s, escrito)},
            {u"RECTOR"_s, ajuste(u"RECTOR"_s, escrito)},
            {u"SECRETARIA"_s, ajuste(u"SECRETARIA"_s, escrito)},
            {u"conFirma"_s, !escrito}};
}

QVariantMap deSalon(const Contexto &c, Membrete manera, const SalonDemo &salon)
{
    QVariantMap valores = deColegio(c, manera);
    valores[u"salon"_s] = QVariantMap{{u"id"_s, salon.id},
                                      {u"nombre"_s, salon.nombre},
                                      {u"sede"_s, salon.sede},
                                      {u"director"_s, salon.director}};
    return valores;
}

QVariantMap deAlumno(const Contexto &c, Membrete manera, const AlumnoDemo &alumno)
{
    QVariantMap valores = deSalon(c, manera, *buscarSalon(c.escuela, alumno.salon));
    valores[u"alumno"_s] = QVariantMap{{u"id"_s, alumno.id},
                                       {u"nombre"_s, alumno.nombre},
                                       {u"documento"_s, alumno.documento},
                                       {u"nacimiento"_s, alumno.nacimiento},
                                       {u"lugar"_s, alumno.lugar},
                                       {u"acudiente"_s, alumno.acudiente},
                                       {u"direccion"_s, alumno.direccion},
                                       {u"telefono"_s, alumno.telefono},
                                       {u"conFoto"_s, alumno.conFoto}};
    return valores;
}

QVariantList listaAlumnos(const Contexto &c, const SalonDemo &salon)
{
    QVariantList filas;
    for (const AlumnoDemo &alumno : alumnosDe(c.escuela, salon.id))
        filas.append(QVariantMap{
            {u"numero"_s, filas.size() + 1}, {u"id"_s, alumno.id}, {u"nombre"_s, alumno.nombre}});
    return filas;
}

QVariantMap deNota(double valor)
{
    const QString como = desempeno(valor);
    return {{u"valor"_s, nota(valor)},
            {u"enLetras"_s, enLetras(valor)},
            {u"desempeno"_s, como},
            {u"enMinusculas"_s, como.toLower()},
            {u"superior"_s, como == u"Superior"_s},
            {u"alto"_s, como == u"Alto"_s},
            {u"basico"_s, como == u"Básico"_s},
            {u"bajo"_s, como == u"Bajo"_s}};
}

QVariantList deMaterias(const Contexto &c, const AlumnoDemo &alumno)
{
    QVariantList filas;
    for (int m = 0; m < materiasDictadas(c.escuela); ++m)
        filas.append(deMateria(c.escuela.materias.at(m), alumno, m));
    return filas;
}

QVariantList deAreas(const Contexto &c, const AlumnoDemo &alumno)
{
    QVariantList filas;
    for (const AreaDemo &area : areas(c.escuela)) {
        QVariantList materias;
        for (const int m : area.materias)
            materias.append(deMateria(c.escuela.materias.at(m), alumno, m));
        filas.append(QVariantMap{{u"nombre"_s, area.nombre},
                                 {u"total"_s, deNota(definitivaArea(alumno, area))},
                                 {u"materias"_s, materias}});
    }
    return filas;
}

} // namespace demo
