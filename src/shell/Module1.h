// The session globals: texts for the whole process, written only during login. A leaf: it
// includes nothing of the project and may be included from anywhere.
#pragma once

#include <QString>

namespace Module1 {

inline QString idColegio;    // the school's id; "ERROR" from the window's load until a login
inline QString anoActual;    // the school year being archived
inline QString rolUsuario;   // "SECRETARIA" once an account is accepted
inline QString usaBoleta2;   // "SI": the school uses the second report-card layout
inline QString usaInfoFin2;  // "SI": the second final-report layout
inline QString usaCertiFin2; // "2" or "3": another certificate layout; as the service sent it

} // namespace Module1
