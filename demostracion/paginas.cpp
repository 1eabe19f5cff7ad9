#include "demostracion/paginas.h"

#include "demostracion/calificaciones.h"
#include "demostracion/plantilla.h"

using namespace Qt::StringLiterals;

namespace demo {

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
