// SPDX-License-Identifier: MIT
#include "records/matriz.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_matriz : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void filas_seSeparanEnCadaSigno_data()
    {
        QTest::addColumn<QString>("rta");
        QTest::addColumn<QStringList>("filas");
        QTest::newRow("two") << u"5,A®6,B"_s << QStringList({u"5,A"_s, u"6,B"_s});
        QTest::newRow("trailing sign keeps an empty row")
            << u"5,A®"_s << QStringList({u"5,A"_s, QString()});
        QTest::newRow("empty reply has none") << QString() << QStringList();
        QTest::newRow("no sign") << u"ERROR"_s << QStringList({u"ERROR"_s});
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
        const QString fila = u" 8, PEDRO "_s;
        QCOMPARE(matriz::campo(fila, 0), u" 8"_s);
        QCOMPARE(matriz::campo(fila, 1), u" PEDRO "_s);
    }

    void campoQueFalta_estaVacio()
    {
        QCOMPARE(matriz::campo(u"6", 1), QString());
        QCOMPARE(matriz::campo(u"6,", 1), QString());
        QCOMPARE(matriz::campo(u"", 0), QString());
        QCOMPARE(matriz::campo(u",,C", 2), u"C"_s);
    }

    void otroSeparador_dejaLasComasEnSuCampo()
    {
        const QString fila = u"9@|@ARTES, DANZA@|@x"_s;
        QCOMPARE(matriz::campo(fila, 0, u"@|@"), u"9"_s);
        QCOMPARE(matriz::campo(fila, 1, u"@|@"), u"ARTES, DANZA"_s);
        QCOMPARE(matriz::campo(fila, 2, u"@|@"), u"x"_s);
    }

    void identificador_pierdeSusSaltos()
    {
        QCOMPARE(matriz::identificador(u"\r7\n\r\n,SEPTIMO"), u"7"_s);
        QCOMPARE(matriz::identificador(u""), QString());
    }
};

QTEST_GUILESS_MAIN(tst_matriz)
#include "tst_matriz.moc"
