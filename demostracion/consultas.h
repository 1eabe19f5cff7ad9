// SPDX-License-Identifier: MIT
// The bare-text and matrix replies of the service's queries.
#pragma once

#include "demostracion/Escuela.h"

namespace demo {

// "ERROR", or the school's id, the account's role and the user's name, separated by commas.
QString entrada(const Escuela &escuela, const QString &usuario, const QString &clave);

// Rows separated by "®" with none after the last, fields by ",".
QString matrizSalones(const Escuela &escuela);
QString matrizAlumnos(const Escuela &escuela, const QString &salon); // all when `salon` is empty
QString matrizMaterias(const Escuela &escuela);
// Fields separated by "@|@": code of the subject in that classroom, subject, teacher.
QString matrizAsignaturas(const Escuela &escuela, const SalonDemo &salon);

// The two halves of such a code; null and -1 when there is no such subject.
struct AsignaturaDemo {
    const SalonDemo *salon = nullptr;
    int materia = -1;
};
AsignaturaDemo buscarAsignatura(const Escuela &escuela, const QString &codigo);

} // namespace demo
