// SPDX-License-Identifier: MIT
// The session: what a login learns of the school. Empty until then, but for the id; written by
// the login alone, and kept until the program ends.
#pragma once

#include <QString>

struct Module1 {
    QString idColegio{};    // the school's id; "ERROR" from the window's load until a login
    QString anoActual{};    // the school year being archived
    QString rolUsuario{};   // "SECRETARIA" once an account is accepted
    QString usaBoleta2{};   // "SI": the school uses the second report-card layout
    QString usaInfoFin2{};  // "SI": the second final-report layout
    QString usaCertiFin2{}; // "2" or "3": another certificate layout; as the service sent it
};
