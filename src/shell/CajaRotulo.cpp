// SPDX-License-Identifier: MIT
#include "CajaRotulo.h"

#include <QEvent>
#include <QResizeEvent>

CajaRotulo::CajaRotulo(QWidget *padre) : QWidget(padre)
{
    QSizePolicy trato(QSizePolicy::Ignored, QSizePolicy::Preferred);
    trato.setHeightForWidth(true);
    setSizePolicy(trato);
}

QSize CajaRotulo::sizeHint() const
{
    return rotulo()->sizeHint();
}

QSize CajaRotulo::minimumSizeHint() const
{
    return rotulo()->minimumSizeHint();
}

int CajaRotulo::heightForWidth(int ancho) const
{
    return rotulo()->heightForWidth(ancho);
}

// The label asks its parent to be laid out anew, which has no layout that would do so; it asks none
// that is not seen, however its text changes meanwhile.
bool CajaRotulo::event(QEvent *suceso)
{
    if (suceso->type() == QEvent::LayoutRequest && heightForWidth(width()) != m_alto) {
        m_alto = heightForWidth(width());
        updateGeometry();
    }
    if (suceso->type() == QEvent::Show)
        updateGeometry();
    return QWidget::event(suceso);
}

void CajaRotulo::resizeEvent(QResizeEvent *suceso)
{
    QWidget::resizeEvent(suceso);
    rotulo()->setGeometry(rect());
    m_alto = -1; // the layout may still reckon with the text before
}

QWidget *CajaRotulo::rotulo() const
{
    return findChild<QWidget *>({}, Qt::FindDirectChildrenOnly);
}
