// SPDX-License-Identifier: MIT
// The handle on the main window's progress elements, which the download procedures write
// directly.
#pragma once

#include <QString>

// A progress bar. A value beyond the maximum, or below 0, changes nothing.
class Barra {
public:
    virtual ~Barra() = default;
    virtual int valor() const = 0;
    virtual void ponerValor(int valor) = 0;
    virtual void ponerMaximo(int maximo) = 0;

    void avanzar() { ponerValor(valor() + 1); }
};

// A status label; its text is shown as plain text.
class Rotulo {
public:
    virtual ~Rotulo() = default;
    virtual void ponerTexto(const QString &texto) = 0;
};

// Borrowed: the window ties its elements in when it is created and must outlive every procedure
// that writes them.
struct Progreso {
    Barra *barra1 = nullptr;    // items of the current list
    Barra *barra2 = nullptr;    // steps of the run
    Rotulo *estadoTS = nullptr; // the current step's title
    Rotulo *estadoHS = nullptr; // the current item's text
};
