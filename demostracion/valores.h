// SPDX-License-Identifier: MIT
// What the pages of the service are filled with: the school, a classroom, a student, grades.
#pragma once

#include "demostracion/Escuela.h"

#include <QVariantMap>

namespace demo {

struct Contexto {
    const Escuela &escuela;
    QString base; // scheme, host and port, without a trailing slash
};

// How a page comes by the school's details.
enum class Membrete {
    Escrito,     // the service writes them all
    PorGuion,    // name and motto written; the script at the page's end fills the rest by id
    TodoPorGuion // the script fills name and motto as well
};

// {{base}}, {{colegio}}, {{anio}}, the settings of the letterhead and the signatures, empty where a
// script fills them, and {{conFirma}}: whether the principal's drawn signature stands there.
QVariantMap deColegio(const Contexto &c, Membrete manera);
// The same and {{salon.nombre}} and so on.
QVariantMap deSalon(const Contexto &c, Membrete manera, const SalonDemo &salon);
// The same and {{alumno.nombre}} and so on, with the student's classroom.
QVariantMap deAlumno(const Contexto &c, Membrete manera, const AlumnoDemo &alumno);
// The rows of a classroom's students: {{numero}}, from 1, and what is the student's own.
QVariantList listaAlumnos(const Contexto &c, const SalonDemo &salon);

// {{valor}} ("4.2"), {{enLetras}}, {{desempeno}}, {{enMinusculas}} ("alto"), and of {{#superior}},
// {{#alto}}, {{#basico}} and {{#bajo}}, which does not pass, the one that it is.
QVariantMap deNota(double valor);
// The subjects that are taught, as one student did in them: {{nombre}}, {{horas}}, {{docente}}, the
// {{#notas}} of the four periods, in one text as {{periodos}}, {{definitiva.valor}} and so on, and
// its {{porcentaje}} of the best; {{fallas}}, {{#unaFalla}}.
QVariantList deMaterias(const Contexto &c, const AlumnoDemo &alumno);
// The areas likewise: {{nombre}}, {{total.valor}} and so on, the {{#materias}} of each.
QVariantList deAreas(const Contexto &c, const AlumnoDemo &alumno);

} // namespace demo
