// SPDX-License-Identifier: MIT
#include "shell/programa.h"
#include "platform/Verbos.h"
#include "platform/direccionHttp.h"
#include "platform/paleta.h"
#include "platform/pausa.h"
#include "service/Entorno.h"
#include "shell/Form1.h"

#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <cstdlib>

using namespace Qt::StringLiterals;

Programa::Programa(char *nombre)
    : m_argumentos{nombre, nullptr}, m_aplicacion(m_cuantos, m_argumentos.data())
{
    QApplication::setApplicationName(u"Parvanel"_s);
    QApplication::setWindowIcon(QIcon(u":/logo.svg"_s));
}

int Programa::correr(const QString &ServiceBase)
{
    // The menus of text boxes and the like; without the file they stay in English.
    QTranslator traductor;
    if (traductor.load(QLocale(QLocale::Spanish), u"qtbase"_s, u"_"_s,
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&traductor);

    const PaletaEscritorio paleta;
    HttpClient http;
    DriveC disco(DriveC::carpetaPersonal());
    Azar azar;
    Verbos verbos(
        {.origen = QString::fromUtf8(direccionHttp::separar(ServiceBase.toUtf8()).servidor),
         .raiz = [&disco] {
             return disco.rutaNativa(u"C:\\Quorvela"_s);
         }});
    Module1 sesion;
    Progreso progreso;
    Entorno entorno{.ServiceBase = ServiceBase,
                    .http = http,
                    .disco = disco,
                    .azar = azar,
                    .pausa = &pausa,
                    .sesion = sesion,
                    .progreso = progreso};
    // At once, from whatever handler or wait the close comes in: nothing is unwound or saved.
    Form1 ventana(entorno, verbos, [] { std::_Exit(EXIT_SUCCESS); });
    ventana.show();
    return QApplication::exec();
}
