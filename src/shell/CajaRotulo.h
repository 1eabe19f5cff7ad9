// SPDX-License-Identifier: MIT
// The place of one label in a layout. A label's every new text has its layout worked out again,
// with all that is in it; in a box of its own it does so only when its height has become another.
#pragma once

#include <QWidget>

class CajaRotulo : public QWidget {
    Q_OBJECT
public:
    explicit CajaRotulo(QWidget *padre = nullptr);

    // Those of the label, the box's one child.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int ancho) const override;

protected:
    bool event(QEvent *suceso) override;
    void resizeEvent(QResizeEvent *suceso) override;

private:
    QWidget *rotulo() const;

    int m_alto = -1; // of the text that the layout was last worked out for; -1: not known
};
