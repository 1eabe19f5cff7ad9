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

    // How much of it is full, from 0 to 1; 0 for a maximum of 0.
    double parte() const;
    // How often it has been given a maximum: how many lists it has been for.
    int comienzos() const { return m_comienzos; }

protected:
    void paintEvent(QPaintEvent *suceso) override;

private:
    void pintarParte(QPainter &pintor, const QRect &parte, const QColor &fondo,
                     const QColor &letra) const;

    int m_comienzos = 0;
};
