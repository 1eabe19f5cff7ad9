// SPDX-License-Identifier: MIT
#include "shell/programa.h"

int main(int, char *argv[])
{
    Programa programa(argv[0], QStringLiteral("example.parvanel.parvanel"));
    return programa.correr(QStringLiteral(PARVANEL_SERVICE_BASE));
}
