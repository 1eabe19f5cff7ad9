// SPDX-License-Identifier: MIT
// The program's logo, as the window and its icon show it. It is one drawing, logo.svg; in the sizes
// that a screen without scaling asks for, the build has drawn it already, pixel for pixel as it
// would be drawn here, so that a start need not read and draw it five times. These pictures are
// bare bytes: to read them takes no plugin and no decoder.
#pragma once

#include <QIcon>
#include <QSvgWidget>

class Logotipo : public QSvgWidget {
public:
    using QSvgWidget::QSvgWidget;

    // For the windows of a program that has its application already.
    static QIcon icono();

protected:
    void paintEvent(QPaintEvent *suceso) override;
};
