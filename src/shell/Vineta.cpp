// SPDX-License-Identifier: MIT
#include "Vineta.h"
#include "estilo/tonos.h"

#include <QPainter>

Vineta::Vineta(QWidget *padre) : QWidget(padre)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

// As high as a line of text, so that it stands at the middle of the first one beside it.
QSize Vineta::sizeHint() const
{
    return {14, fontMetrics().height()};
}

void Vineta::paintEvent(QPaintEvent *)
{
    QPainter pintor(this);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(tonos::de(palette()).marca);
    pintor.drawEllipse(QRectF(rect()).center(), 2.5, 2.5);
}
