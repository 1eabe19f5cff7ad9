// SPDX-License-Identifier: MIT
// The place of one label in a layout. A label's every new text has its layout worked out again,
// with all that is in it; in a box of its own it does so only when it is measured and its height
// has become another.
#pragma once

#include <QWidget>

class CajaRotulo : public QWidget {
    Q_OBJECT
public:
    explicit CajaRotulo(QWidget *padre = nullptr);

    // Asks for another layout if the text of the label, the box's one child, needs another height.
    void medir();

Q_SIGNALS:
    // The label may need another height. It is measured when whoever listens sees fit: nobody else
    // does.
    void porMedir();

private:
    class Lugar;

    QWidget *rotulo() const;

    int m_alto = -1; // of the text that the layout was last worked out for; -1: not known
};
