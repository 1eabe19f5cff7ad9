// SPDX-License-Identifier: MIT
#include "Pestana.h"
#include "estilo/tonos.h"

#include <QFocusEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace {

constexpr int alLado = 9; // of the text, in pixels
constexpr int arriba = 7;
constexpr int debajo = 9; // the line included
constexpr int raya = 3;
// Four tabs of so many pixels fit on the narrowest screens that one meets: 1366 and 1024 across, at
// twice and one and a half times the size.
constexpr int cuartoDePantalla = 155;

} // namespace

Pestana::Pestana(QWidget *padre) : QRadioButton(padre)
{
    QSizePolicy trato(QSizePolicy::Preferred, QSizePolicy::Fixed);
    trato.setHeightForWidth(true);
    setSizePolicy(trato);
    setAttribute(Qt::WA_Hover);
}

int Pestana::anchoDeLaMayor(bool porPalabras) const
{
    int mayor = 0;
    const auto todas = parentWidget()->findChildren<Pestana *>(Qt::FindDirectChildrenOnly);
    for (const Pestana *pestana : todas) {
        const QStringList partes =
            porPalabras ? pestana->text().split(u' ') : QStringList{pestana->text()};
        for (const QString &parte : partes)
            mayor = std::max(mayor, pestana->fontMetrics().horizontalAdvance(parte));
    }
    return mayor + 1 + 2 * alLado;
}

QSize Pestana::sizeHint() const
{
    const int ancho = anchoDeLaMayor(false);
    return {ancho, heightForWidth(ancho)};
}

QSize Pestana::minimumSizeHint() const
{
    const int enUnaLinea = anchoDeLaMayor(false);
    const int ancho = enUnaLinea <= cuartoDePantalla ? enUnaLinea : anchoDeLaMayor(true);
    return {ancho, heightForWidth(ancho)};
}

int Pestana::heightForWidth(int ancho) const
{
    const QRect lugar(0, 0, ancho - 2 * alLado, 10'000);
    const int alto = fontMetrics().boundingRect(lugar, Qt::TextWordWrap, text()).height();
    return std::max(alto, fontMetrics().height()) + arriba + debajo;
}

bool Pestana::hitButton(const QPoint &lugar) const
{
    return rect().contains(lugar);
}

void Pestana::paintEvent(QPaintEvent *)
{
    const tonos::Tonos t = tonos::de(palette());
    QPainter pintor(this);
    pintor.setPen(isChecked() || underMouse() ? t.texto : t.apagado);
    pintor.drawText(rect().adjusted(alLado, arriba, -alLado, -debajo),
                    Qt::AlignCenter | Qt::TextWordWrap, text());
    const QRect linea(0, height() - raya, width(), raya);
    if (isChecked())
        pintor.fillRect(linea, t.marca);
    else if (underMouse())
        pintor.fillRect(linea, t.linea);
    if (!hasFocus() || !m_porTeclado)
        return;
    QStyleOptionFocusRect foco;
    foco.initFrom(this);
    foco.rect = rect().adjusted(1, 1, -1, -raya - 1);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &foco, &pintor, this);
}

void Pestana::focusInEvent(QFocusEvent *suceso)
{
    m_porTeclado = suceso->reason() != Qt::MouseFocusReason;
    QRadioButton::focusInEvent(suceso);
}

void Pestana::keyPressEvent(QKeyEvent *suceso)
{
    m_porTeclado = true;
    QRadioButton::keyPressEvent(suceso);
}
