// SPDX-License-Identifier: MIT
#include "estilo/idioma.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

void idioma::poner()
{
    auto *traductor = new QTranslator(qApp);
    // One that is built into the program, as where the library is, comes first.
    for (const QString &carpeta :
         {u":/traducciones"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)}) {
        if (traductor->load(QLocale(QLocale::Spanish), u"qtbase"_s, u"_"_s, carpeta)) {
            QCoreApplication::installTranslator(traductor);
            return;
        }
    }
}
