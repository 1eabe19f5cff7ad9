// SPDX-License-Identifier: MIT
#include "CajaRotulo.h"

#include <QLayout>

#include <utility>

// The box as its label's layout: what the label says to it of a new text, or of anything else that
// may change its size, is noted and goes no further. It has no items, but the label's sizes.
class CajaRotulo::Lugar : public QLayout {
public:
    explicit Lugar(CajaRotulo *caja) : QLayout(caja), m_caja(*caja)
    {
        setContentsMargins(0, 0, 0, 0);
    }

    void invalidate() override { m_caja.porMedir(); }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int ancho) const override { return m_caja.rotulo()->heightForWidth(ancho); }
    QSize sizeHint() const override { return m_caja.rotulo()->sizeHint(); }
    QSize minimumSize() const override { return m_caja.rotulo()->minimumSizeHint(); }

    void setGeometry(const QRect &lugar) override
    {
        QLayout::setGeometry(lugar);
        m_caja.rotulo()->setGeometry(lugar);
        m_caja.m_alto = -1; // the layout may still reckon with the text before
        m_caja.porMedir();
    }

    void addItem(QLayoutItem *item) override { delete item; }
    QLayoutItem *itemAt(int) const override { return nullptr; }
    QLayoutItem *takeAt(int) override { return nullptr; }
    int count() const override { return 0; }

private:
    CajaRotulo &m_caja;
};

CajaRotulo::CajaRotulo(QWidget *padre) : QWidget(padre)
{
    new Lugar(this);
    QSizePolicy trato(QSizePolicy::Ignored, QSizePolicy::Preferred);
    trato.setHeightForWidth(true);
    setSizePolicy(trato);
}

void CajaRotulo::medir()
{
    const int alto = rotulo()->heightForWidth(width());
    if (alto != std::exchange(m_alto, alto))
        updateGeometry();
}

QWidget *CajaRotulo::rotulo() const
{
    return findChild<QWidget *>({}, Qt::FindDirectChildrenOnly);
}
