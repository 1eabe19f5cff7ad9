#include "shell/programa.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    const QApplication aplicacion(argc, argv);
    return correrPrograma(QStringLiteral(PARVANEL_SERVICE_BASE));
}
