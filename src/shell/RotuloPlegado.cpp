// SPDX-License-Identifier: MIT
#include "RotuloPlegado.h"

#include <QResizeEvent>

RotuloPlegado::RotuloPlegado(QWidget *padre) : QLabel(padre)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    QSizePolicy trato(QSizePolicy::Ignored, QSizePolicy::Preferred);
    trato.setHeightForWidth(true);
    setSizePolicy(trato);
}

void RotuloPlegado::ponerTexto(const QString &texto)
{
    setText(texto);
    if (m_apagado)
        apagar(false);
}

void RotuloPlegado::apagar(bool apagado)
{
    m_apagado = apagado;
    setForegroundRole(apagado ? QPalette::PlaceholderText : QPalette::NoRole);
}

// A layout reckons with one line only when it works out how small the window may get. Before the
// label has its width from a layout it is as narrow as any new element, and its text would ask for
// a window that is higher than it ever needs.
QSize RotuloPlegado::minimumSizeHint() const
{
    const QSize deLaBiblioteca = QLabel::minimumSizeHint();
    return m_dispuesto ? QSize(deLaBiblioteca.width(), heightForWidth(width())) : deLaBiblioteca;
}

void RotuloPlegado::resizeEvent(QResizeEvent *suceso)
{
    QLabel::resizeEvent(suceso);
    m_dispuesto = true;
    if (suceso->oldSize().width() != width())
        updateGeometry();
}
