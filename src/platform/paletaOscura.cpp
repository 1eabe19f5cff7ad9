// SPDX-License-Identifier: MIT
#include "platform/paleta.h"

QPalette paletaOscura()
{
    const QColor ventana(0x2b, 0x2b, 0x2e);
    const QColor base(0x3d, 0x3d, 0x42);
    const QColor texto(0xee, 0xee, 0xee);
    const QColor apagado(0xb8, 0xb8, 0xbe);
    const QColor boton(0x50, 0x50, 0x56);
    QPalette paleta(boton, ventana);
    paleta.setColor(QPalette::WindowText, texto);
    paleta.setColor(QPalette::ButtonText, texto);
    paleta.setColor(QPalette::Base, base);
    paleta.setColor(QPalette::AlternateBase, ventana.darker(110));
    paleta.setColor(QPalette::Text, texto);
    paleta.setColor(QPalette::PlaceholderText, apagado);
    paleta.setColor(QPalette::ToolTipBase, base);
    paleta.setColor(QPalette::ToolTipText, texto);
    paleta.setColor(QPalette::Highlight, QColor(0x5a, 0xa0, 0xdc));
    paleta.setColor(QPalette::HighlightedText, Qt::black);
    paleta.setColor(QPalette::Link, QColor(0x6c, 0xb4, 0xf0));
    for (const auto papel : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        paleta.setColor(QPalette::Disabled, papel, apagado);
    return paleta;
}
