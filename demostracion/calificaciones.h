// SPDX-License-Identifier: MIT
// What the school works out from grades and absences.
#pragma once

#include "demostracion/Escuela.h"

namespace demo {

struct AreaDemo {
    QString nombre;
    QList<int> materias; // positions of its subjects
};

// Areas in the order of their first subject, without the one of NOTADEFINITIVA.
QList<AreaDemo> areas(const Escuela &escuela);
// Subjects that are taught: all but NOTADEFINITIVA.
int materiasDictadas(const Escuela &escuela);
QList<AlumnoDemo> alumnosDe(const Escuela &escuela, const QString &salon);
const SalonDemo *buscarSalon(const Escuela &escuela, const QString &id);
const AlumnoDemo *buscarAlumno(const Escuela &escuela, const QString &id);

// All grades are 1.0 to 5.0 with one decimal; 3.0 passes.
double definitiva(const AlumnoDemo &alumno, int materia);
// Of the periods 1 to `periodo`.
double acumulada(const AlumnoDemo &alumno, int materia, int periodo);
double definitivaArea(const AlumnoDemo &alumno, const AreaDemo &area);
double promedio(const AlumnoDemo &alumno);
int perdidas(const AlumnoDemo &alumno);
int totalFallas(const AlumnoDemo &alumno);
bool promovido(const AlumnoDemo &alumno); // fewer than three subjects lost
// Place in the classroom, from 1; equal averages share a place.
int puesto(const Escuela &escuela, const AlumnoDemo &alumno);

QString nota(double valor);      // "4.2"
QString desempeno(double valor); // "Superior", "Alto", "Básico", "Bajo"

} // namespace demo
