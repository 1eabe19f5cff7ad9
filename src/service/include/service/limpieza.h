// SPDX-License-Identifier: MIT
// Cleaning of what the service sends before it becomes an identifier, a value or a path.
#pragma once

#include <QString>

// The line-break stripper: every CR and every LF is removed; all else, blanks included, stays.
QString sinSaltos(QString texto);

// Without the blanks at both ends. A blank is the character 32 alone.
QString recortar(const QString &texto);
