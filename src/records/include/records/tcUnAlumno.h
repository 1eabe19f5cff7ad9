// SPDX-License-Identifier: MIT
// One student.
#pragma once

#include <QString>

struct tcUnAlumno {
    QString id;
    QString nombre;
};
