// SPDX-License-Identifier: MIT
// The service's drawing of a text, the one picture that it makes when asked for.
#pragma once

#include <QByteArray>
#include <QString>

namespace demo {

// A column heading: the text, turned to read upwards, 44 by 352 pixels. A whole PNG file with a
// transparent ground. A leading "NOTA" or "NOTA:" is not drawn.
QByteArray dibujarRotulo(const QString &texto);

} // namespace demo
