// SPDX-License-Identifier: MIT
#include "platform/proceso.h"
#include "shell/programa.h"

int main(int, char *argv[])
{
    proceso::asegurar();
    Programa programa(argv[0], QStringLiteral("example.parvanel.parvanel"));
    return programa.correr(QStringLiteral(PARVANEL_SERVICE_BASE));
}
