// SPDX-License-Identifier: MIT
#include "service/azar.h"

#include <QTest>

class tst_azar : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void numero_cubreSusExtremosYRedondeaAlPar_data()
    {
        QTest::addColumn<double>("r");
        QTest::addColumn<int>("numero");
        QTest::newRow("zero gives the largest") << 0.0 << 1000000;
        QTest::newRow("one would give the smallest") << 1.0 << 1000;
        QTest::newRow("middle") << 0.5 << 500500;
        QTest::newRow("half above an even number goes down") << 0.5 / 999000.0 << 1000000;
        QTest::newRow("half above an odd number goes up") << 1.5 / 999000.0 << 999998;
    }
    void numero_cubreSusExtremosYRedondeaAlPar()
    {
        QFETCH(double, r);
        QFETCH(int, numero);
        QCOMPARE(Azar::numeroDe(r), numero);
    }

    void siguiente_quedaEntreCeroYUno()
    {
        Azar azar;
        azar.sembrar();
        double menor = 1;
        double mayor = 0;
        for (int i = 0; i < 100000; ++i) {
            const double r = azar.siguiente();
            QVERIFY(r >= 0 && r < 1);
            menor = std::min(menor, r);
            mayor = std::max(mayor, r);
        }
        QVERIFY(menor < 0.01 && mayor > 0.99);
    }

    void dosSiembras_danNumerosDistintos()
    {
        Azar azar;
        azar.sembrar();
        const double primero = azar.siguiente();
        QTRY_VERIFY((azar.sembrar(), azar.siguiente() != primero));
    }
};

QTEST_GUILESS_MAIN(tst_azar)
#include "tst_azar.moc"
