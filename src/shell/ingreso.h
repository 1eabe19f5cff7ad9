// SPDX-License-Identifier: MIT
// The login's decisions, apart from the window.
#pragma once

#include <QString>

struct Entorno;
class tcSalones;

namespace ingreso {

enum class Resultado { Aceptado, CredencialesMalas, RolInadecuado };

// Asks the service whether the account may use the program. The session globals are set only
// when it is accepted. User and password are sent as they stand.
Resultado conectar(Entorno &entorno, const QString &usuario, const QString &clave);

// Loads the school's classrooms; when the service does not answer, none.
void cargarSalones(Entorno &entorno, tcSalones &salones);

} // namespace ingreso
