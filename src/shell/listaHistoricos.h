// SPDX-License-Identifier: MIT
// The archive list's one decision: what is opened.
#pragma once

#include <QString>

// The front page of the chosen entry: a forward slash after a path written with back slashes.
// With nothing chosen it is "/index.html".
QString portadaDe(const QString &historico);
