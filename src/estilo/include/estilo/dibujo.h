// SPDX-License-Identifier: MIT
// The programs' own drawings, by the name that a drawing has among the resources, without an
// ending (":/marca"). The build draws each in some sizes (parvanel_dibujo). Where the library that
// draws is a part of the program, any other size is drawn when it is asked for; where it is not
// (PARVANEL_SVG), the next larger one is made smaller.
#pragma once

#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;

namespace dibujo {

// Fills `lugar`, a square, with the drawing: as sharp as the device is, however it is scaled.
// Nothing is painted for a name that there is no drawing of.
void pintar(QPainter &pintor, const QString &nombre, const QRectF &lugar);

// For windows, of a program that has its application already.
QIcon icono(const QString &nombre);

} // namespace dibujo
