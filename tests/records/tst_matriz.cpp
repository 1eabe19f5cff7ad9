// SPDX-License-Identifier: MIT
#include "records/matriz.h"

#include <QTest>

class tst_matriz : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void filas_seSeparanEnCadaSigno_data()
    {
        QTest::addColumn<QString>("rta");
        QTest::addColumn<QStringList>("filas");
        QTest::newRow("two") << QStringLiteral("5,A®6,B")
                             << QStringList({QStringLiteral("5,A"), QStringLiteral("6,B")});
        QTest::newRow("trailing sign keeps an empty row")
            << QStringLiteral("5,A®") << QStringList({QStringLiteral("5,A"), QString()});
        QTest::newRow("empty reply has none") << QString() << QStringList();
        QTest::newRow("no sign") << QStringLiteral("ERROR")
                                 << QStringList({QStringLiteral("ERROR")});
    }
    void filas_seSeparanEnCadaSigno()
    {
        QFETCH(QString, rta);
        QFETCH(QStringList, filas);
        QStringList leidas;
        for (const QStringView fila : matriz::filas(rta))
            leidas.append(fila.toString());
        QCOMPARE(leidas, filas);
        QCOMPARE(matriz::cuantasFilas(rta), filas.size());
    }

    void campo_noSeRecorta()
    {
        const QString fila = QStringLiteral(" 8, PEDRO ");
        QCOMPARE(matriz::campo(fila, 0), QStringLiteral(" 8"));
        QCOMPARE(matriz::campo(fila, 1), QStringLiteral(" PEDRO "));
    }

    void campoQueFalta_estaVacio()
    {
        QCOMPARE(matriz::campo(u"6", 1), QString());
        QCOMPARE(matriz::campo(u"6,", 1), QString());
        QCOMPARE(matriz::campo(u"", 0), QString());
        QCOMPARE(matriz::campo(u",,C", 2), QStringLiteral("C"));
    }

    void otroSeparador_dejaLasComasEnSuCampo()
    {
        const QString fila = QStringLiteral("9@|@ARTES, DANZA@|@x");
        QCOMPARE(matriz::campo(fila, 0, u"@|@"), QStringLiteral("9"));
        QCOMPARE(matriz::campo(fila, 1, u"@|@"), QStringLiteral("ARTES, DANZA"));
        QCOMPARE(matriz::campo(fila, 2, u"@|@"), QStringLiteral("x"));
    }

    void identificador_pierdeSusSaltos()
    {
        QCOMPARE(matriz::identificador(u"\r7\n\r\n,SEPTIMO"), QStringLiteral("7"));
        QCOMPARE(matriz::identificador(u""), QString());
    }
};

QTEST_GUILESS_MAIN(tst_matriz)
#include "tst_matriz.moc"
