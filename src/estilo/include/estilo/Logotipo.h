// SPDX-License-Identifier: MIT
// The program's mark, as the window's header and its icon show it. It is one drawing, marca.svg; in
// the sizes that a screen without scaling asks for, the build has drawn it already, pixel for pixel
// as it would be drawn here (estilo/dibujo.h).
#pragma once

#include <QIcon>
#include <QWidget>

// The mark, as high as the element, and the program's name beside it.
class Logotipo : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    // For the windows of a program that has its application already.
    static QIcon icono();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *suceso) override;

private:
    QFont letra() const;
};
