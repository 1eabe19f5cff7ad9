// SPDX-License-Identifier: MIT
#include "estilo/idioma.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

void idioma::poner()
{
    auto traductor = std::make_unique<QTranslator>();
    // One that is built into the program, as where the library is, comes first.
    for (const QString &carpeta :
         {u":/traducciones"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)}) {
        if (traductor->load(QLocale(QLocale::Spanish), u"qtbase"_s, u"_"_s, carpeta)) {
            QCoreApplication::installTranslator(traductor.get());
            traductor.release()->setParent(qApp); // which goes by it to its end
            return;
        }
    }
}
