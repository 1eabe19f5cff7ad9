// SPDX-License-Identifier: MIT
// One classroom.
#pragma once

#include <QString>

struct tcUnSalon {
    QString id;
    QString salon; // its name
};
