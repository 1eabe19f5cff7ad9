// SPDX-License-Identifier: MIT
// A progress bar as the program's runs drive it: values out of its range change nothing, and a
// maximum of 0 shows an empty bar, not one that moves by itself.
#pragma once

#include "session/Progreso.h"

#include <QProgressBar>

class BarraProgreso : public QProgressBar, public Barra {
    Q_OBJECT
public:
    explicit BarraProgreso(QWidget *padre = nullptr);

    int valor() const override;
    void ponerValor(int valor) override;
    void ponerMaximo(int maximo) override;

protected:
    void paintEvent(QPaintEvent *suceso) override;

private:
    void pintarParte(QPainter &pintor, const QRect &parte, const QColor &fondo,
                     const QColor &letra) const;
};
