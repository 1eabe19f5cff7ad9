// SPDX-License-Identifier: MIT
// The school-settings query made at login.
#pragma once

#include "service/Entorno.h"

#include <QString>

class frmCargador;

// Reads the login reply ("id,role,..."). False, with no session global changed, when the role is
// not one of the two accepted ones; otherwise sets all session globals, asking the service for
// the settings, and returns true whatever the settings queries bring.
bool tomarValores(Entorno &entorno, const QString &respuestaLogin);

// One setting of the logged-in school, as the service sends it. `acentos` asks for it in the
// form that the archive's configuration script needs.
QString pedirValor(Entorno &entorno, frmCargador &cargador, const QString &campo, bool acentos);
