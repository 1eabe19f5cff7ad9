// SPDX-License-Identifier: MIT
#include "estilo/Superficie.h"
#include "estilo/tonos.h"

#include <QPainter>

namespace {

// A letter i in a circle, as notices bear it everywhere.
void pintarSigno(QPainter &pintor, const QPointF &centro, const tonos::Tonos &t)
{
    constexpr qreal radio = 10;
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(tonos::apartado(t.acento, {t.tinte}, tonos::visible));
    pintor.drawEllipse(centro, radio, radio);
    pintor.setPen(QPen(t.tinte, 2.4, Qt::SolidLine, Qt::RoundCap));
    pintor.drawPoint(centro - QPointF(0, 4.6));
    pintor.drawLine(centro - QPointF(0, 0.6), centro + QPointF(0, 4.8));
}

} // namespace

Superficie::Superficie(QWidget *padre) : QWidget(padre) {}

void Superficie::setTipo(Tipo tipo)
{
    m_tipo = tipo;
    update();
}

void Superficie::paintEvent(QPaintEvent *)
{
    const tonos::Tonos t = tonos::de(palette());
    QPainter pintor(this);
    if (m_tipo == Cabecera) {
        pintor.fillRect(rect(), t.base);
        pintor.fillRect(QRect(0, height() - 1, width(), 1), t.linea);
        return;
    }
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(m_tipo == Aviso ? QPen(tonos::mezcla(t.tinte, t.acento, 0.3)) : QPen(t.linea));
    pintor.setBrush(m_tipo == Aviso ? t.tinte : t.base);
    constexpr qreal esquina = 6;
    pintor.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), esquina, esquina);
    if (m_tipo == Aviso)
        pintarSigno(pintor, QPointF(layoutDirection() == Qt::RightToLeft ? width() - 21 : 21, 20),
                    t);
}
