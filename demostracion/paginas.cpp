// SPDX-License-Identifier: MIT
#include "demostracion/paginas.h"

#include "demostracion/calificaciones.h"
#include "demostracion/plantilla.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

// A student and how the year ended.
QVariantMap conResultados(const Contexto &c, const AlumnoDemo &alumno)
{
    QVariantMap valores = deAlumno(c, Membrete::PorGuion, alumno);
    valores[u"promedio"_s] = deNota(promedio(alumno));
    valores[u"promovido"_s] = promovido(alumno);
    valores[u"puesto"_s] = puesto(c.escuela, alumno);
    valores[u"perdidas"_s] = perdidas(alumno);
    valores[u"fallas"_s] = totalFallas(alumno);
    return valores;
}

// What a report card's script is told. Escaped for HTML, which is what the script puts it into, a
// text holds no quotes.
QVariantMap paraGuion(const Contexto &c)
{
    QVariantMap valores;
    for (const QString &campo :
         {u"MICOLEGIO"_s, u"SLOGAN"_s, u"CDANE"_s, u"DIRECCION"_s, u"TELEFONO"_s})
        valores[campo.toLower()] = c.escuela.ajustes.value(campo).replace(u'\\', u"\\\\"_s);
    return valores;
}

// A subject as a report card shows it, when the first `periodo` periods are over.
QVariantMap hastaPeriodo(const Contexto &c, const AlumnoDemo &alumno, int materia, int periodo)
{
    const MateriaDemo &una = c.escuela.materias.at(materia);
    QVariantList notas;
    for (int p = 0; p < periodo; ++p)
        notas.append(deNota(alumno.notas.at(materia).at(p)));
    return {{u"nombre"_s, una.nombre},
            {u"docente"_s, una.docente},
            {u"horas"_s, una.horas},
            {u"notas"_s, notas},
            {u"delPeriodo"_s, notas.last()},
            {u"acumulada"_s, deNota(acumulada(alumno, materia, periodo))}};
}

} // namespace

namespace demo {

QString indiceSalones(const Contexto &c)
{
    QMap<QString, QVariantList> salones; // by site
    for (const SalonDemo &salon : c.escuela.salones)
        salones[salon.sede].append(
            QVariantMap{{u"id"_s, salon.id},
                        {u"nombre"_s, salon.nombre},
                        {u"alumnos"_s, alumnosDe(c.escuela, salon.id).size()},
                        {u"director"_s, salon.director}});
    QVariantList sedes;
    for (auto it = salones.cbegin(); it != salones.cend(); ++it)
        sedes.append(QVariantMap{{u"nombre"_s, it.key()}, {u"salones"_s, it.value()}});
    QVariantMap valores = deColegio(c, Membrete::Escrito);
    valores[u"sedes"_s] = sedes;
    return llenar(u"indice"_s, valores);
}

QString listaSalon(const Contexto &c, const SalonDemo &salon)
{
    QVariantMap valores = deSalon(c, Membrete::Escrito, salon);
    valores[u"alumnos"_s] = listaAlumnos(c, salon);
    valores[u"cuantos"_s] = alumnosDe(c.escuela, salon.id).size();
    return llenar(u"salon"_s, valores);
}

QString hojaMatricula(const Contexto &c, const AlumnoDemo &alumno)
{
    return llenar(u"hojaMatricula"_s, deAlumno(c, Membrete::PorGuion, alumno));
}

QString infoAlumno(const Contexto &c, const AlumnoDemo &alumno)
{
    return llenar(u"infoAlumno"_s, deAlumno(c, Membrete::Escrito, alumno));
}

QString pazYsalvo(const Contexto &c, const AlumnoDemo &alumno)
{
    return llenar(u"pazYsalvo"_s, deAlumno(c, Membrete::Escrito, alumno));
}

QString observador(const Contexto &c, const AlumnoDemo &alumno)
{
    QVariantMap valores = deAlumno(c, Membrete::Escrito, alumno);
    int numero = alumno.id.toInt();
    for (const QString &aspecto : {u"personal"_s, u"convivencia"_s, u"academico"_s})
        valores[aspecto + u"Bien"_s] = promovido(alumno) && numero++ % 4 != 0;
    return llenar(u"observador"_s, valores);
}

QString paginaAusente()
{
    return llenar(u"ausente"_s, {});
}

QString informeFinal(const Contexto &c, const AlumnoDemo &alumno, int clase)
{
    QVariantMap valores = conResultados(c, alumno);
    valores[u"areas"_s] = deAreas(c, alumno);
    return llenar(clase == 2 ? u"infoFinal2"_s : u"infoFinal"_s, valores);
}

QString certificado(const Contexto &c, const AlumnoDemo &alumno, int clase)
{
    QVariantMap valores = conResultados(c, alumno);
    valores[u"completo"_s] = clase == 1;
    valores[u"porAreas"_s] = clase == 2;
    valores[u"enProsa"_s] = clase == 3;
    valores[u"materias"_s] = deMaterias(c, alumno);
    valores[u"areas"_s] = deAreas(c, alumno);
    return llenar(u"certificado"_s, valores);
}

QString boletin(const Contexto &c, const AlumnoDemo &alumno, int periodo, int clase)
{
    QVariantList materias;
    for (int m = 0; m < materiasDictadas(c.escuela); ++m)
        materias.append(hastaPeriodo(c, alumno, m, periodo));
    QVariantList periodos;
    for (int p = 1; p <= periodo; ++p)
        periodos.append(p);
    QVariantMap valores = deAlumno(c, Membrete::TodoPorGuion, alumno);
    valores[u"guion"_s] = paraGuion(c);
    valores[u"periodo"_s] = periodo;
    valores[u"periodos"_s] = periodos;
    valores[u"enTabla"_s] = clase == 1;
    valores[u"enTarjetas"_s] = clase == 2;
    valores[u"materias"_s] = materias;
    valores[u"fallas"_s] = totalFallas(alumno);
    return llenar(u"boletin"_s, valores);
}

QString planillaAsignatura(const Contexto &c, const SalonDemo &salon, int materia)
{
    const MateriaDemo &una = c.escuela.materias.at(materia);
    QVariantMap valores = deSalon(c, Membrete::Escrito, salon);
    valores[u"materia"_s] = QVariantMap{{u"nombre"_s, una.nombre},
                                        {u"docente"_s, una.docente},
                                        {u"area"_s, una.area},
                                        {u"horas"_s, una.horas}};
    valores[u"alumnos"_s] = listaAlumnos(c, salon);
    return llenar(u"planilla"_s, valores);
}

} // namespace demo
