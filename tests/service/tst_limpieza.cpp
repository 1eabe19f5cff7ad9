// SPDX-License-Identifier: MIT
#include "service/limpieza.h"

#include <QTest>

class tst_limpieza : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void sinSaltos_quitaCadaCrYCadaLfYNadaMas_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("limpio");
        QTest::newRow("line end") << QStringLiteral("7\r\n") << QStringLiteral("7");
        QTest::newRow("anywhere") << QStringLiteral("\n1\r2\n\r3") << QStringLiteral("123");
        QTest::newRow("blanks stay") << QStringLiteral(" a b\t") << QStringLiteral(" a b\t");
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
        QTest::newRow("both ends") << QStringLiteral("  a b ") << QStringLiteral("a b");
        QTest::newRow("tab stays") << QStringLiteral("\ta ") << QStringLiteral("\ta");
        QTest::newRow("no-break space stays")
            << QStringLiteral("\u00A0a") << QStringLiteral("\u00A0a");
        QTest::newRow("line end stays")
            << QStringLiteral(" 2010\r\n") << QStringLiteral("2010\r\n");
        QTest::newRow("only blanks") << QStringLiteral("   ") << QString();
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
