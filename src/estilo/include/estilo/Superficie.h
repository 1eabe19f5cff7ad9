// SPDX-License-Identifier: MIT
// What elements stand on: the window's header, a card, a notice. It is drawn in tones of the
// palette and is nothing by itself: no element for assistive technology, no place in the tab order.
#pragma once

#include <QWidget>

class Superficie : public QWidget {
    Q_OBJECT
    Q_PROPERTY(Tipo tipo READ tipo WRITE setTipo)
public:
    enum Tipo {
        Cabecera, // across the window's top, parted from what is below
        Tarjeta,  // a card: elements that belong together
        Aviso,    // a notice: tinted, with a sign at its left, for which its layout leaves room
    };
    Q_ENUM(Tipo)

    // Room that a notice's layout leaves at its left, in pixels.
    static constexpr int lugarDelSigno = 42;

    explicit Superficie(QWidget *padre = nullptr);

    Tipo tipo() const { return m_tipo; }
    void setTipo(Tipo tipo);

protected:
    void paintEvent(QPaintEvent *suceso) override;

private:
    Tipo m_tipo = Tarjeta;
};
