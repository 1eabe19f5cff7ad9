#include "demostracion/paginas.h"

#include "demostracion/calificaciones.h"
#include "demostracion/plantilla.h"

#include <QMap>

using namespace Qt::StringLiterals;

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

} // namespace demo
