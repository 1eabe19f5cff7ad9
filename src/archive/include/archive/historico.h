// SPDX-License-Identifier: MIT
// The archive download run: the order of its steps.
#pragma once

#include <QString>

#include <memory>

class tcAlumnos;
class tcMaterias;
class tcSalones;
struct Entorno;

// The lists that a run works through: each begins `Progreso::barra1` anew.
inline constexpr int listasDeUnaCorrida = 11;

// Builds the offline archive of the session's school and year, or writes over the one that is
// there. `salones` holds the classrooms loaded at login; `alumnos` and `materias` are loaded
// here (`materias` is made if it is not there yet). Every step runs whatever the one before it
// brought: there is no failure to return. All are borrowed for the call, during which the window's
// other handlers run: none of them may end one of the lists.
void descargarHistorico(Entorno &entorno, tcSalones &salones, tcAlumnos &alumnos,
                        std::unique_ptr<tcMaterias> &materias);
