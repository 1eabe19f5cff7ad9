// SPDX-License-Identifier: MIT
#include "RotuloPlegado.h"

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
    ajustarAlto();
}

void RotuloPlegado::resizeEvent(QResizeEvent *suceso)
{
    QLabel::resizeEvent(suceso);
    ajustarAlto();
}

// A layout reckons with one line only when it works out how small the window may get.
void RotuloPlegado::ajustarAlto()
{
    setMinimumHeight(heightForWidth(width()));
}
