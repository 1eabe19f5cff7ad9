// SPDX-License-Identifier: MIT
#include "BarraProgreso.h"

#include <QStyleOptionProgressBar>

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
    if (valor >= 0 && valor <= maximum())
        setValue(valor);
}

void BarraProgreso::ponerMaximo(int maximo)
{
    if (maximo < 0)
        return;
    const int antes = value();
    setMaximum(maximo);
    // A value beyond the new maximum has been thrown away by now.
    if (antes > maximo)
        setValue(maximo);
}

void BarraProgreso::initStyleOption(QStyleOptionProgressBar *opcion) const
{
    QProgressBar::initStyleOption(opcion);
    if (opcion->minimum == opcion->maximum) {
        opcion->maximum = opcion->minimum + 1;
        opcion->progress = opcion->minimum;
    }
}
