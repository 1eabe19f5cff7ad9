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

} // namespace demo
