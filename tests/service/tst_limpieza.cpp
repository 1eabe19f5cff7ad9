// SPDX-License-Identifier: MIT
#include "service/limpieza.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_limpieza : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void sinSaltos_quitaCadaCrYCadaLfYNadaMas_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("limpio");
        QTest::newRow("line end") << u"7\r\n"_s << u"7"_s;
        QTest::newRow("anywhere") << u"\n1\r2\n\r3"_s << u"123"_s;
        QTest::newRow("blanks stay") << u" a b\t"_s << u" a b\t"_s;
        QTest::newRow("empty") << QString() << QString();
    }
    void sinSaltos_quitaCadaCrYCadaLfYNadaMas()
    {
        QFETCH(QString, texto);
        QFETCH(QString, limpio);
        QCOMPARE(sinSaltos(texto), limpio);
    }

    void recortar_quitaSoloElBlanco32DeLosExtremos_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("recortado");
        QTest::newRow("both ends") << u"  a b "_s << u"a b"_s;
        QTest::newRow("tab stays") << u"\ta "_s << u"\ta"_s;
        QTest::newRow("no-break space stays") << u"\u00A0a"_s << u"\u00A0a"_s;
        QTest::newRow("line end stays") << u" 2010\r\n"_s << u"2010\r\n"_s;
        QTest::newRow("only blanks") << u"   "_s << QString();
    }
    void recortar_quitaSoloElBlanco32DeLosExtremos()
    {
        QFETCH(QString, texto);
        QFETCH(QString, recortado);
        QCOMPARE(recortar(texto), recortado);
    }
};

QTEST_GUILESS_MAIN(tst_limpieza)
#include "tst_limpieza.moc"
