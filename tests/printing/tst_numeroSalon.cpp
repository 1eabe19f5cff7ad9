// SPDX-License-Identifier: MIT
#include "printing/numeroSalon.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_numeroSalon : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void linea_seLeeHastaDondeEsNumero_data()
    {
        QTest::addColumn<QString>("linea");
        QTest::addColumn<double>("numero");
        QTest::addColumn<QString>("decimal");
        QTest::newRow("usual line") << u"501   : QUINTO A"_s << 501.0 << u"501"_s;
        QTest::newRow("blanks first") << u"  14   : 6A"_s << 14.0 << u"14"_s;
        QTest::newRow("letters after") << u"6A   : SEXTO"_s << 6.0 << u"6"_s;
        QTest::newRow("zero") << u"0   : CERO"_s << 0.0 << u"0"_s;
        QTest::newRow("negative") << u"-3   : X"_s << -3.0 << u"-3"_s;
        QTest::newRow("fraction") << u"2.5   : X"_s << 2.5 << u"2.5"_s;
        QTest::newRow("large") << u"123456789012   : X"_s << 123456789012.0 << u"123456789012"_s;
        QTest::newRow("no exponent in the decimal") << u"1e6   : X"_s << 1000000.0 << u"1000000"_s;
        QTest::newRow("letters") << u"ABC   : X"_s << 0.0 << u"0"_s;
        QTest::newRow("line break first") << u"\r\n7   : X"_s << 0.0 << u"0"_s;
        QTest::newRow("empty") << QString() << 0.0 << u"0"_s;
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
