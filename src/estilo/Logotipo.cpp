// SPDX-License-Identifier: MIT
#include "estilo/Logotipo.h"
#include "estilo/dibujo.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr auto marca = ":/marca"_L1;
constexpr auto nombre = "Parvanel"_L1;
constexpr int entreMarcaYNombre = 10;

} // namespace

QIcon Logotipo::icono()
{
    return dibujo::icono(QString(marca));
}

QFont Logotipo::letra() const
{
    QFont letra = font();
    letra.setBold(true);
    letra.setPixelSize(height() * 5 / 8);
    return letra;
}

QSize Logotipo::sizeHint() const
{
    return {height() + entreMarcaYNombre + QFontMetrics(letra()).horizontalAdvance(nombre) + 1,
            height()};
}

void Logotipo::paintEvent(QPaintEvent *)
{
    QPainter pintor(this);
    dibujo::pintar(pintor, QString(marca), QRectF(0, 0, height(), height()));
    pintor.setFont(letra());
    pintor.setPen(palette().color(QPalette::WindowText));
    pintor.drawText(rect().adjusted(height() + entreMarcaYNombre, 0, 0, 0),
                    Qt::AlignLeft | Qt::AlignVCenter, nombre);
}
