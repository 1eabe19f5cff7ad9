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
        QCOMPARE(matriz::filas(rta), filas);
    }

    void registros_pasanPorAltoLasFilasVacias()
    {
        const auto registros = matriz::registros(QStringLiteral("®5,A®®6®"));
        QCOMPARE(registros.size(), 2);
        QCOMPARE(registros[0], QStringList({QStringLiteral("5"), QStringLiteral("A")}));
        QCOMPARE(registros[1], QStringList({QStringLiteral("6")}));
    }

    void campos_noSeRecortan()
    {
        QCOMPARE(matriz::campos(QStringLiteral(" 8, PEDRO ")),
                 QStringList({QStringLiteral(" 8"), QStringLiteral(" PEDRO ")}));
    }

    void otroSeparador_dejaLasComasEnSuCampo()
    {
        QCOMPARE(matriz::campos(QStringLiteral("9@|@ARTES, DANZA@|@x"), QStringLiteral("@|@")),
                 QStringList(
                     {QStringLiteral("9"), QStringLiteral("ARTES, DANZA"), QStringLiteral("x")}));
    }

    void identificador_pierdeSusSaltos()
    {
        QCOMPARE(matriz::identificador({QStringLiteral("\r7\n\r\n")}), QStringLiteral("7"));
        QCOMPARE(matriz::identificador({}), QString());
    }
};

QTEST_GUILESS_MAIN(tst_matriz)
#include "tst_matriz.moc"
