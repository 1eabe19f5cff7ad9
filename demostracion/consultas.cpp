// SPDX-License-Identifier: MIT
#include "demostracion/consultas.h"

#include "demostracion/calificaciones.h"

using namespace Qt::StringLiterals;

namespace {

const QString separaFilas = u"®"_s;

} // namespace

namespace demo {

QString entrada(const Escuela &escuela, const QString &usuario, const QString &clave)
{
    for (const CuentaDemo &cuenta : escuela.cuentas)
        if (cuenta.usuario == usuario && cuenta.clave == clave)
            return QStringList{escuela.idColegio, cuenta.rol, cuenta.usuario}.join(u',');
    return u"ERROR"_s;
}

QString matrizSalones(const Escuela &escuela)
{
    QStringList filas;
    for (const SalonDemo &salon : escuela.salones)
        filas.append(salon.id + u',' + salon.nombre);
    return filas.join(separaFilas);
}

QString matrizAlumnos(const Escuela &escuela, const QString &salon)
{
    QStringList filas;
    for (const AlumnoDemo &alumno : escuela.alumnos)
        if (salon.isEmpty() || alumno.salon == salon)
            filas.append(alumno.id + u',' + alumno.nombre);
    return filas.join(separaFilas);
}

QString matrizMaterias(const Escuela &escuela)
{
    QStringList filas;
    for (const MateriaDemo &materia : escuela.materias)
        filas.append(QStringList{materia.id, materia.nombre, materia.area}.join(u','));
    return filas.join(separaFilas);
}

QString matrizAsignaturas(const Escuela &escuela, const SalonDemo &salon)
{
    QStringList filas;
    for (int m = 0; m < materiasDictadas(escuela); ++m) {
        const MateriaDemo &materia = escuela.materias.at(m);
        filas.append(QStringList{salon.id + u'-' + materia.id, materia.nombre,
                                 u"Docente: "_s + materia.docente + u", "_s + materia.area}
                         .join(u"@|@"_s));
    }
    return filas.join(separaFilas);
}

AsignaturaDemo buscarAsignatura(const Escuela &escuela, const QString &codigo)
{
    AsignaturaDemo hallada;
    const SalonDemo *salon = buscarSalon(escuela, codigo.section(u'-', 0, 0));
    for (int m = 0; salon && m < materiasDictadas(escuela); ++m)
        if (escuela.materias.at(m).id == codigo.section(u'-', 1))
            hallada = {salon, m};
    return hallada;
}

} // namespace demo
