// SPDX-License-Identifier: MIT
#include "demostracion/rotulo.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int ancho = 44;
constexpr int alto = 352;

QFont letra(int pixeles)
{
    QFont fuente(u"DejaVu Sans"_s);
    fuente.setStyleHint(QFont::SansSerif);
    fuente.setPixelSize(pixeles);
    fuente.setBold(true);
    return fuente;
}

// The largest size at which the text is no longer than the picture.
QFont letraQueCabe(const QString &texto)
{
    int pixeles = 25;
    while (pixeles > 8 && QFontMetricsF(letra(pixeles)).horizontalAdvance(texto) > alto - 12)
        --pixeles;
    return letra(pixeles);
}

} // namespace

QByteArray demo::dibujarRotulo(const QString &texto)
{
    QString visible = texto;
    if (visible.startsWith("NOTA"_L1) && visible.size() > 4) {
        visible.remove(0, 4);
        if (visible.startsWith(u':'))
            visible.remove(0, 1);
    }
    QImage imagen(ancho, alto, QImage::Format_ARGB32_Premultiplied);
    imagen.fill(Qt::transparent);
    QPainter p(&imagen);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    p.translate(0, alto);
    p.rotate(-90);
    p.setFont(letraQueCabe(visible));
    p.setPen(QColor(0x1d, 0x27, 0x33));
    p.drawText(QRectF(6, 0, alto - 6, ancho), Qt::AlignLeft | Qt::AlignVCenter, visible);
    p.end();

    QByteArray bytes;
    QBuffer memoria(&bytes);
    memoria.open(QIODevice::WriteOnly);
    imagen.save(&memoria, "PNG");
    return bytes;
}
