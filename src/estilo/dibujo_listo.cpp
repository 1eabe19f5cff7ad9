// SPDX-License-Identifier: MIT
#include "dibujado.h"
#include "estilo/dibujo.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The sides of what there is of a drawing, the smallest first.
QList<int> ladosDe(const QString &nombre)
{
    const QFileInfo lugar(nombre);
    const QStringList archivos =
        lugar.dir().entryList({lugar.fileName() + u"-*x*.argb"_s}, QDir::Files);
    QList<int> lados;
    for (const QString &archivo : archivos)
        lados.append(archivo.section(u'x', -1).section(u'.', 0, 0).toInt());
    std::sort(lados.begin(), lados.end());
    return lados;
}

} // namespace

void dibujo::pintar(QPainter &pintor, const QString &nombre, const QRectF &lugar)
{
    const QList<int> lados = ladosDe(nombre);
    if (lados.isEmpty())
        return;
    const QTransform alAparato = pintor.deviceTransform();
    const int pedido = qRound(alAparato.mapRect(lugar).height());
    const auto mejor = std::lower_bound(lados.begin(), lados.end(), pedido);
    const int lado = mejor == lados.end() ? lados.last() : *mejor;
    pintor.save();
    // One pixel of the picture is one of the device's where the size is the same.
    pintor.setRenderHint(QPainter::SmoothPixmapTransform, lado != pedido);
    QImage imagen = dibujado::de(nombre, lado);
    if (lado != pedido)
        imagen = imagen.scaled(pedido, pedido, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    pintor.drawImage(lugar, imagen);
    pintor.restore();
}

QIcon dibujo::icono(const QString &nombre)
{
    QIcon icono;
    for (const int lado : ladosDe(nombre))
        icono.addPixmap(QPixmap::fromImage(dibujado::de(nombre, lado)));
    return icono;
}
