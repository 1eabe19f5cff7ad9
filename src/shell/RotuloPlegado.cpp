// SPDX-License-Identifier: MIT
#include "RotuloPlegado.h"

#include <QResizeEvent>

RotuloPlegado::RotuloPlegado(QWidget *padre) : QLabel(padre)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    QSizePolicy trato(QSizePolicy::Ignored, QSizePolicy::Preferred);
    trato.setHeightForWidth(true);
    setSizePolicy(trato);
}

void RotuloPlegado::ponerTexto(const QString &texto)
{
    setText(texto);
}

// A layout reckons with one line only when it works out how small the window may get.
QSize RotuloPlegado::minimumSizeHint() const
{
    return {QLabel::minimumSizeHint().width(), heightForWidth(width())};
}

void RotuloPlegado::resizeEvent(QResizeEvent *suceso)
{
    QLabel::resizeEvent(suceso);
    if (suceso->oldSize().width() != width())
        updateGeometry();
}
