// SPDX-License-Identifier: MIT
// parvanel-revisor: whether an archive is whole. With arguments a command line, else a window.
#include "consola.h"
#include "mostrarVentana.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    if (argc < 2)
        return mostrarVentana();
    // Of the command line only the name reaches Qt, which would take options of its own out of it.
    int una = 1;
    const QCoreApplication aplicacion(una, argv);
    return consola::correr(argc, argv);
}
