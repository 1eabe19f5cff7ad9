// SPDX-License-Identifier: MIT
#include "shell/Logotipo.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace {

constexpr auto dibujo = ":/logo.svg"_L1;

// The drawing in so many pixels; null when the build has not drawn it in this size.
QPixmap lista(QSize pixeles)
{
    QFile bytes(u":/logo-%1x%2.argb"_s.arg(pixeles.width()).arg(pixeles.height()));
    if (!bytes.open(QIODevice::ReadOnly))
        return {};
    QImage imagen(pixeles, QImage::Format_ARGB32_Premultiplied);
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
    for (const QSize pixeles : {QSize(16, 4), QSize(32, 8), QSize(64, 17), QSize(128, 34)})
        icono.addPixmap(lista(pixeles));
    return icono;
}

void Logotipo::paintEvent(QPaintEvent *suceso)
{
    {
        QPainter pintor(this);
        const bool sinEscala = pintor.deviceTransform().type() <= QTransform::TxTranslate;
        const QPixmap imagen = sinEscala ? lista(size()) : QPixmap();
        pintor.drawPixmap(0, 0, imagen);
        if (!imagen.isNull())
            return;
    }
    if (!renderer()->isValid()) {
        load(QString(dibujo));
        renderer()->setAspectRatioMode(Qt::KeepAspectRatio);
    }
    QSvgWidget::paintEvent(suceso);
}
