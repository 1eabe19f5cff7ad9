// SPDX-License-Identifier: MIT
// What the build has drawn. These pictures are bare bytes: to read them takes no plugin and no
// decoder, and a start need not read and draw the drawing once for each size.
#pragma once

#include <QImage>
#include <QString>

namespace dibujado {

// The drawing of that name (as in estilo/dibujo.h) in so many pixels a side; null when the build
// has not drawn it in this size.
QImage de(const QString &nombre, int lado);

} // namespace dibujado
