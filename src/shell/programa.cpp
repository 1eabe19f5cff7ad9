#include "shell/programa.h"
#include "platform/Verbos.h"
#include "platform/paleta.h"
#include "platform/pausa.h"
#include "service/Servicio.h"
#include "shell/Form1.h"

#include <QApplication>
#include <QDir>
#include <QIcon>

#include <cstdlib>

int correrPrograma(const QString &ServiceBase)
{
    QApplication::setApplicationName(QStringLiteral("Parvanel"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/logo.svg")));

    const PaletaEscritorio paleta;
    HttpClient http;
    DriveC disco(QDir::homePath());
    Azar azar;
    Verbos verbos;
    Servicio servicio{ServiceBase, http, disco, azar, &pausa};
    // At once, from whatever handler or wait the close comes in: nothing is unwound or saved.
    Form1 ventana(servicio, verbos, [] { std::_Exit(EXIT_SUCCESS); });
    ventana.show();
    return QApplication::exec();
}
