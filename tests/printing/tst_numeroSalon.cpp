// SPDX-License-Identifier: MIT
#include "printing/numeroSalon.h"

#include <QTest>

class tst_numeroSalon : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void linea_seLeeHastaDondeEsNumero_data()
    {
        QTest::addColumn<QString>("linea");
        QTest::addColumn<double>("numero");
        QTest::addColumn<QString>("decimal");
        QTest::newRow("usual line")
            << QStringLiteral("501   : QUINTO A") << 501.0 << QStringLiteral("501");
        QTest::newRow("blanks first")
            << QStringLiteral("  14   : 6A") << 14.0 << QStringLiteral("14");
        QTest::newRow("letters after")
            << QStringLiteral("6A   : SEXTO") << 6.0 << QStringLiteral("6");
        QTest::newRow("zero") << QStringLiteral("0   : CERO") << 0.0 << QStringLiteral("0");
        QTest::newRow("negative") << QStringLiteral("-3   : X") << -3.0 << QStringLiteral("-3");
        QTest::newRow("fraction") << QStringLiteral("2.5   : X") << 2.5 << QStringLiteral("2.5");
        QTest::newRow("large") << QStringLiteral("123456789012   : X") << 123456789012.0
                               << QStringLiteral("123456789012");
        QTest::newRow("no exponent in the decimal")
            << QStringLiteral("1e6   : X") << 1000000.0 << QStringLiteral("1000000");
        QTest::newRow("letters") << QStringLiteral("ABC   : X") << 0.0 << QStringLiteral("0");
        QTest::newRow("line break first")
            << QStringLiteral("\r\n7   : X") << 0.0 << QStringLiteral("0");
        QTest::newRow("empty") << QString() << 0.0 << QStringLiteral("0");
    }
    void linea_seLeeHastaDondeEsNumero()
    {
        QFETCH(QString, linea);
        QFETCH(double, numero);
        QFETCH(QString, decimal);
        QCOMPARE(numeroSalon(linea), numero);
        QCOMPARE(enDecimal(numeroSalon(linea)), decimal);
    }
};

QTEST_GUILESS_MAIN(tst_numeroSalon)
#include "tst_numeroSalon.moc"
