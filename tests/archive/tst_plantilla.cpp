#include "archive/plantilla.h"

#include <QTest>

class tst_plantilla : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void lugares_seLlenanUnaSolaVez_data()
    {
        QTest::addColumn<QString>("plantilla");
        QTest::addColumn<QString>("texto");
        QTest::newRow("two places") << QStringLiteral("{a}/x/{b}") << QStringLiteral("1/x/{a}");
        QTest::newRow("the same twice") << QStringLiteral("{a}{a}") << QStringLiteral("11");
        QTest::newRow("unknown place stays") << QStringLiteral("{c}") << QStringLiteral("{c}");
        QTest::newRow("open brace stays") << QStringLiteral("a{b") << QStringLiteral("a{b");
        QTest::newRow("no place") << QStringLiteral("texto") << QStringLiteral("texto");
        QTest::newRow("empty") << QString() << QString();
    }
    void lugares_seLlenanUnaSolaVez()
    {
        QFETCH(QString, plantilla);
        QFETCH(QString, texto);
        QCOMPARE(completar(plantilla, {{QStringLiteral("a"), QStringLiteral("1")},
                                       {QStringLiteral("b"), QStringLiteral("{a}")}}),
                 texto);
    }
};

QTEST_GUILESS_MAIN(tst_plantilla)
#include "tst_plantilla.moc"
