// SPDX-License-Identifier: MIT
#include "estilo/idioma.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_idioma : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The menu of a text box, a message box, a file dialog.
    void textosDeLaBiblioteca_enCastellano()
    {
        const auto texto = [](const char *donde, const char *cual) {
            return QCoreApplication::translate(donde, cual);
        };
        QCOMPARE(texto("QWidgetTextControl", "&Copy"), u"&Copy"_s);
        idioma::poner();
        QCOMPARE(texto("QWidgetTextControl", "&Copy"), u"&Copiar"_s);
        QCOMPARE(texto("QPlatformTheme", "Cancel"), u"Cancelar"_s);
        QCOMPARE(texto("QFileDialog", "Look in:"), u"Ver en:"_s);
    }
};

QTEST_GUILESS_MAIN(tst_idioma)
#include "tst_idioma.moc"
