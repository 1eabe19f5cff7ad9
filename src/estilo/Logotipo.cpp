// SPDX-License-Identifier: MIT
#include "estilo/Logotipo.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace {

constexpr auto dibujo = ":/marca.svg"_L1;
constexpr auto nombre = "Parvanel"_L1;
constexpr int entreMarcaYNombre = 10;

// The drawing in so many pixels a side; null when the build has not drawn it in this size.
QPixmap lista(int lado)
{
    QFile bytes(u":/marca-%1x%1.argb"_s.arg(lado));
    if (!bytes.open(QIODevice::ReadOnly))
        return {};
    QImage imagen(lado, lado, QImage::Format_ARGB32_Premultiplied);
    const bool entera = bytes.read(reinterpret_cast<char *>(imagen.bits()), imagen.sizeInBytes())
                        == imagen.sizeInBytes();
    return entera ? QPixmap::fromImage(imagen) : QPixmap();
}

} // namespace

QIcon Logotipo::icono()
{
    // Where a screen is scaled the window asks for others, all of them of the drawing.
    if (!qFuzzyCompare(qGuiApp->devicePixelRatio(), 1.0))
        return QIcon(QString(dibujo));
    QIcon icono;
    for (const int lado : {16, 24, 32, 48, 64, 128})
        icono.addPixmap(lista(lado));
    return icono;
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
    const bool sinEscala = pintor.deviceTransform().type() <= QTransform::TxTranslate;
    const QPixmap imagen = sinEscala ? lista(height()) : QPixmap();
    if (imagen.isNull())
        QSvgRenderer(QString(dibujo)).render(&pintor, QRectF(0, 0, height(), height()));
    else
        pintor.drawPixmap(0, 0, imagen);
    pintor.setFont(letra());
    pintor.setPen(palette().color(QPalette::WindowText));
    pintor.drawText(rect().adjusted(height() + entreMarcaYNombre, 0, 0, 0),
                    Qt::AlignLeft | Qt::AlignVCenter, nombre);
}
