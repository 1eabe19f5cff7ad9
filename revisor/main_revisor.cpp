// SPDX-License-Identifier: MIT
// parvanel-revisor: whether an archive is whole. With arguments a command line, else a window.
#include "consola.h"
#include "mostrarVentana.h"
#include "platform/proceso.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    proceso::asegurar();
    const std::vector<std::string> argumentos = proceso::argumentos(argc, argv);
    if (argumentos.empty()) {
        proceso::soltarConsola();
        return mostrarVentana();
    }
    // Of the command line only the name reaches Qt, which would take options of its own out of it.
    int una = 1;
    const QCoreApplication aplicacion(una, argv);
    return consola::correr(argumentos);
}
