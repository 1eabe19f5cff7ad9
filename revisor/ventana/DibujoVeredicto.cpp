// SPDX-License-Identifier: MIT
#include "DibujoVeredicto.h"
#include "estilo/dibujo.h"

#include <QPainter>

void DibujoVeredicto::poner(const QString &nombre)
{
    m_nombre = nombre;
    update();
}

void DibujoVeredicto::paintEvent(QPaintEvent *)
{
    if (m_nombre.isEmpty())
        return;
    QPainter pintor(this);
    dibujo::pintar(pintor, m_nombre, rect());
}
