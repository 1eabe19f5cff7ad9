// SPDX-License-Identifier: MIT
// The print panel as the print jobs see it.
#pragma once

#include <QString>

class PanelImpresion {
public:
    virtual ~PanelImpresion() = default;

    // The chosen line of the classroom list; empty when none is chosen.
    virtual QString lineaSalon() const = 0;
    // The chosen period counted from 1; 0 when none is chosen.
    virtual int periodo() const = 0;
    // Whether each document is to be printed as well as downloaded, at this moment.
    virtual bool descargarEImprimir() const = 0;

    // A message box with one OK button; returns when it has been closed.
    virtual void mensaje(const QString &texto) = 0;

    // Shows the bar from 0 to `maximo` and hides the buttons; advances the bar by one; brings
    // the panel back.
    virtual void empezar(int maximo) = 0;
    virtual void avanzar() = 0;
    virtual void terminar() = 0;
};
