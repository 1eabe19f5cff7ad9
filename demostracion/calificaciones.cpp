// SPDX-License-Identifier: MIT
#include "demostracion/calificaciones.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Averages are taken over whole tenths: the same result whatever the processor's rounding.
int decimas(double nota)
{
    return static_cast<int>(std::lround(nota * 10));
}

double media(int sumaDecimas, qsizetype cuantas)
{
    if (cuantas == 0)
        return 0;
    const int n = static_cast<int>(cuantas);
    const int decimas = (2 * sumaDecimas + n) / (2 * n);
    return decimas / 10.0;
}

} // namespace

namespace demo {

QList<AreaDemo> areas(const Escuela &escuela)
{
    QList<AreaDemo> lista;
    for (int m = 0; m < materiasDictadas(escuela); ++m) {
        const QString &nombre = escuela.materias.at(m).area;
        const auto hallada = std::find_if(lista.begin(), lista.end(), [&](const AreaDemo &area) {
            return area.nombre == nombre;
        });
        if (hallada == lista.end())
            lista.append({nombre, {m}});
        else
            hallada->materias.append(m);
    }
    return lista;
}

int materiasDictadas(const Escuela &escuela)
{
    return std::max(0, static_cast<int>(escuela.materias.size()) - 1);
}

QList<AlumnoDemo> alumnosDe(const Escuela &escuela, const QString &salon)
{
    QList<AlumnoDemo> lista;
    std::copy_if(escuela.alumnos.begin(), escuela.alumnos.end(), std::back_inserter(lista),
                 [&](const AlumnoDemo &alumno) { return alumno.salon == salon; });
    return lista;
}

const SalonDemo *buscarSalon(const Escuela &escuela, const QString &id)
{
    const auto hallado = std::find_if(escuela.salones.begin(), escuela.salones.end(),
                                      [&](const SalonDemo &salon) { return salon.id == id; });
    return hallado == escuela.salones.end() ? nullptr : &*hallado;
}

const AlumnoDemo *buscarAlumno(const Escuela &escuela, const QString &id)
{
    const auto hallado = std::find_if(escuela.alumnos.begin(), escuela.alumnos.end(),
                                      [&](const AlumnoDemo &alumno) { return alumno.id == id; });
    return hallado == escuela.alumnos.end() ? nullptr : &*hallado;
}

double acumulada(const AlumnoDemo &alumno, int materia, int periodo)
{
    int suma = 0;
    for (int p = 0; p < periodo; ++p)
        suma += decimas(alumno.notas.at(materia).at(p));
    return media(suma, periodo);
}

double definitiva(const AlumnoDemo &alumno, int materia)
{
    return acumulada(alumno, materia, 4);
}

double definitivaArea(const AlumnoDemo &alumno, const AreaDemo &area)
{
    int suma = 0;
    for (const int m : area.materias)
        suma += decimas(definitiva(alumno, m));
    return media(suma, area.materias.size());
}

double promedio(const AlumnoDemo &alumno)
{
    int suma = 0;
    for (int m = 0; m < alumno.notas.size(); ++m)
        suma += decimas(definitiva(alumno, m));
    return media(suma, alumno.notas.size());
}

int perdidas(const AlumnoDemo &alumno)
{
    int cuantas = 0;
    for (int m = 0; m < alumno.notas.size(); ++m)
        cuantas += decimas(definitiva(alumno, m)) < 30 ? 1 : 0;
    return cuantas;
}

int totalFallas(const AlumnoDemo &alumno)
{
    int suma = 0;
    for (const int fallas : alumno.fallas)
        suma += fallas;
    return suma;
}

bool promovido(const AlumnoDemo &alumno)
{
    return perdidas(alumno) < 3;
}

int puesto(const Escuela &escuela, const AlumnoDemo &alumno)
{
    const double propio = promedio(alumno);
    const QList<AlumnoDemo> curso = alumnosDe(escuela, alumno.salon);
    return 1
           + static_cast<int>(
               std::count_if(curso.begin(), curso.end(),
                             [&](const AlumnoDemo &otro) { return promedio(otro) > propio; }));
}

QString nota(double valor)
{
    return QString::number(valor, 'f', 1);
}

QString desempeno(double valor)
{
    const int d = decimas(valor);
    return d >= 46 ? u"Superior"_s : d >= 40 ? u"Alto"_s : d >= 30 ? u"Básico"_s : u"Bajo"_s;
}

} // namespace demo
