// SPDX-License-Identifier: MIT
// A label for longer texts: plain text that wraps, never widens the window, and always has the
// height of its lines.
#pragma once

#include "session/Progreso.h"

#include <QLabel>

class RotuloPlegado : public QLabel, public Rotulo {
    Q_OBJECT
public:
    explicit RotuloPlegado(QWidget *padre = nullptr);

    // A text that is put is never a dimmed one.
    void ponerTexto(const QString &texto) override;

    // Dims the text, which says nothing yet.
    void apagar(bool apagado);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *suceso) override;

private:
    bool m_dispuesto = false; // by a layout
    bool m_apagado = false;
};
