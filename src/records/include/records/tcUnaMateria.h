// SPDX-License-Identifier: MIT
// One subject.
#pragma once

#include <QString>

struct tcUnaMateria {
    QString id;
    QString nombre;
    QString area;
};
