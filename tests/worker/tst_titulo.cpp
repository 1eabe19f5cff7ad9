// SPDX-License-Identifier: MIT
#include "worker/render/titulo.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_titulo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void titulo_unaLinea_data();
    void titulo_unaLinea();
    void tituloLargo_seCortaEntreDosSignos_data();
    void tituloLargo_seCortaEntreDosSignos();
};

void tst_titulo::titulo_unaLinea_data()
{
    QTest::addColumn<QString>("dado");
    QTest::addColumn<QByteArray>("esperado");
    QTest::newRow("vacio") << QString() << QByteArray();
    QTest::newRow("en blanco") << u" \t\n\u00a0 "_s << QByteArray();
    QTest::newRow("tal cual") << u"Periodo 2 - ÑÁÑEZ, \u00d3scar"_s
                              << QByteArray("Periodo 2 - \xc3\x91\xc3\x81\xc3\x91"
                                            "EZ, \xc3\x93scar");
    QTest::newRow("blancos") << u"  Paz  y\r\n\tsalvo "_s << QByteArray("Paz y salvo");
    QTest::newRow("de control") << u"a\u0001\u0081\u007fb\u0000c"_s << QByteArray("a b c");
    QTest::newRow("medio signo") << QString(QChar(0xd83d)) + u"a"_s << QByteArray("?a");
}

void tst_titulo::titulo_unaLinea()
{
    QFETCH(QString, dado);
    QFETCH(QByteArray, esperado);
    QCOMPARE(titulo::paraImpresora(dado), esperado);
}

void tst_titulo::tituloLargo_seCortaEntreDosSignos_data()
{
    QTest::addColumn<QString>("dado");
    QTest::addColumn<qsizetype>("largo");
    QTest::newRow("justo") << u"a"_s.repeated(255) << qsizetype{255};
    QTest::newRow("uno de mas") << u"a"_s.repeated(256) << qsizetype{255};
    QTest::newRow("de dos bytes") << u"ñ"_s.repeated(200) << qsizetype{254};
    QTest::newRow("de cuatro bytes") << u"\U0001f600"_s.repeated(100) << qsizetype{252};
    QTest::newRow("en un blanco") << u"a"_s.repeated(254) + u" b"_s << qsizetype{254};
}

void tst_titulo::tituloLargo_seCortaEntreDosSignos()
{
    QFETCH(QString, dado);
    QFETCH(qsizetype, largo);
    const QByteArray cortado = titulo::paraImpresora(dado);
    QCOMPARE(cortado.size(), largo);
    QVERIFY(dado.startsWith(QString::fromUtf8(cortado)));
    QVERIFY(!QString::fromUtf8(cortado).contains(QChar::ReplacementCharacter));
}

QTEST_APPLESS_MAIN(tst_titulo)
#include "tst_titulo.moc"
