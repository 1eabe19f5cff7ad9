// SPDX-License-Identifier: MIT
#include "BarraProgreso.h"
#include "estilo/tonos.h"

#include <QPainter>

BarraProgreso::BarraProgreso(QWidget *padre) : QProgressBar(padre)
{
    setValue(0);
}

int BarraProgreso::valor() const
{
    return value();
}

void BarraProgreso::ponerValor(int valor)
{
    if (valor < 0 || valor > maximum())
        return;
    // The library would paint the bar before it returns.
    setUpdatesEnabled(false);
    setValue(valor);
    setUpdatesEnabled(true);
}

void BarraProgreso::ponerMaximo(int maximo)
{
    if (maximo < 0)
        return;
    ++m_comienzos;
    const int antes = value();
    setMaximum(maximo);
    // A value beyond the new maximum has been thrown away by now.
    if (antes > maximo)
        setValue(maximo);
}

double BarraProgreso::parte() const
{
    return maximum() > 0 ? static_cast<double>(value()) / maximum() : 0;
}

// Two flat areas and the percentage: what the styles draw, with its gradients, takes longer than
// the request whose progress it shows.
void BarraProgreso::paintEvent(QPaintEvent *)
{
    const tonos::Tonos t = tonos::de(palette());
    QPainter pintor(this);
    const QRect dentro = rect().adjusted(1, 1, -1, -1);
    const int ancho =
        maximum() > 0 ? static_cast<int>(qint64(dentro.width()) * value() / maximum()) : 0;
    const QRect lleno(dentro.topLeft(), QSize(ancho, dentro.height()));
    const QRect vacio = dentro.adjusted(ancho, 0, 0, 0);
    // As an area too: a line of one pixel would lie beside it where the desktop scales the window.
    pintor.fillRect(rect(), t.borde);
    pintarParte(pintor, lleno, t.acento, t.sobreAcento);
    pintarParte(pintor, vacio, t.base, t.texto);
}

// The text is legible on either area where one ends in its midst.
void BarraProgreso::pintarParte(QPainter &pintor, const QRect &parte, const QColor &fondo,
                                const QColor &letra) const
{
    if (parte.isEmpty())
        return;
    pintor.fillRect(parte, fondo);
    pintor.setClipRect(parte);
    pintor.setPen(letra);
    pintor.drawText(rect(), Qt::AlignCenter, text());
    pintor.setClipping(false);
}
