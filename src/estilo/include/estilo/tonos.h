// SPDX-License-Identifier: MIT
// The colours that the windows are drawn in, all of them reckoned from the desktop's palette: what
// a desktop has chosen stays as it is wherever it can be told apart, and is moved towards black or
// white where it cannot. Plain functions of values.
#pragma once

#include <QColor>
#include <QPalette>

#include <initializer_list>

namespace tonos {

// What can be read by people with weak sight, after the Web's accessibility guidelines (WCAG 2.1,
// AA): texts, and the edges of what is operated.
constexpr double legible = 4.5;
constexpr double visible = 3.0;

// How far two colours stand apart, from 1 (the same) to 21 (black and white); see-through parts
// count as opaque.
double contraste(const QColor &uno, const QColor &otro);

// `color`, or the nearest one on its way to black or white that stands at least `minimo` apart from
// each of `fondos`. The better of black and white when none does.
QColor apartado(const QColor &color, std::initializer_list<QColor> fondos, double minimo);

// `parte` (0 to 1) of one colour in another.
QColor mezcla(const QColor &fondo, const QColor &color, double parte);

struct Tonos {
    QColor ventana;     // behind everything
    QColor base;        // of fields, cards and the header
    QColor texto;       // on both
    QColor apagado;     // texts of less weight, legible on both
    QColor acento;      // of the main button and the chosen row
    QColor sobreAcento; // texts on it
    QColor marca;       // the accent as a line or a dot: visible on both
    QColor borde;       // the edges of fields and buttons: visible on both
    QColor linea;       // lines that part and frame, and say nothing
    QColor tinte;       // of a notice
};

// Of one state of the palette: its colours where the window is in front (Active) or is not, or
// where an element is switched off.
Tonos de(const QPalette &paleta, QPalette::ColorGroup grupo = QPalette::Active);

} // namespace tonos
