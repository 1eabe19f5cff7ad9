// The handle on the main window's progress elements, which the download procedures write
// directly. A leaf: it includes nothing of the project and may be included from anywhere.
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

struct ElementosProgreso {
    Barra *barra1 = nullptr;    // items of the current list
    Barra *barra2 = nullptr;    // steps of the run
    Rotulo *estadoTS = nullptr; // the current step's title
    Rotulo *estadoHS = nullptr; // the current item's text
};

// Set by the main window when it is created.
inline ElementosProgreso elementosProgreso;
