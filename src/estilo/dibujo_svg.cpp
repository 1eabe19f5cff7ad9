// SPDX-License-Identifier: MIT
#include "dibujado.h"
#include "estilo/dibujo.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

void dibujo::pintar(QPainter &pintor, const QString &nombre, const QRectF &lugar)
{
    const bool sinEscala = pintor.deviceTransform().type() <= QTransform::TxTranslate;
    const QImage imagen = sinEscala ? dibujado::de(nombre, qRound(lugar.height())) : QImage();
    if (imagen.isNull())
        QSvgRenderer(nombre + u".svg"_s).render(&pintor, lugar);
    else
        pintor.drawImage(lugar.topLeft(), imagen);
}

QIcon dibujo::icono(const QString &nombre)
{
    QIcon listo;
    // Where a screen is scaled the window asks for others, all of them of the drawing.
    if (qFuzzyCompare(qGuiApp->devicePixelRatio(), 1.0)) {
        for (const int lado : {16, 24, 32, 48, 64, 128}) {
            const QImage imagen = dibujado::de(nombre, lado);
            if (!imagen.isNull())
                listo.addPixmap(QPixmap::fromImage(imagen));
        }
    }
    return listo.isNull() ? QIcon(nombre + u".svg"_s) : listo;
}
