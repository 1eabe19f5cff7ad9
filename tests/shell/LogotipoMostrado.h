// SPDX-License-Identifier: MIT
// The mark and the name beside it, drawn as an image.
#pragma once

#include "estilo/Logotipo.h"

#include <QImage>
#include <QPainter>

namespace logotipoMostrado {

inline constexpr int alto = 32;
inline constexpr int ancho = 180;

// What it is drawn upon.
inline QImage lienzo(qreal escala)
{
    QImage imagen((QSizeF(ancho, alto) * escala).toSize(), QImage::Format_RGB32);
    imagen.setDevicePixelRatio(escala);
    imagen.fill(QColor(0xef, 0xe1, 0xd3)); // so that a corner that is see-through shows
    return imagen;
}

inline QImage mostrado(qreal escala, const QPalette &paleta = {})
{
    Logotipo logotipo;
    logotipo.resize(ancho, alto);
    logotipo.setPalette(paleta);
    QImage imagen = lienzo(escala);
    logotipo.render(&imagen, {}, {}, {});
    return imagen;
}

} // namespace logotipoMostrado
