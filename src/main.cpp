// SPDX-License-Identifier: MIT
#include "platform/proceso.h"
#include "shell/programa.h"

using namespace Qt::StringLiterals;

int main(int, char *argv[])
{
    proceso::asegurar();
    Programa programa(argv[0], u"example.parvanel.parvanel"_s);
    return programa.correr(QStringLiteral(PARVANEL_SERVICE_BASE));
}
