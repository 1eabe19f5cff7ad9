// SPDX-License-Identifier: MIT
// In place of the window, where the reviewer is built without one.
#include "consola.h"
#include "mostrarVentana.h"
#include "opciones.h"

#include <cstdio>

int mostrarVentana()
{
    // Nobody is left to be told when this cannot be written.
    static_cast<void>(std::fputs(consola::ayuda().toUtf8().constData(), stderr));
    return consola::UsoEquivocado;
}
