// SPDX-License-Identifier: MIT
// The texts of a bag, written out.
#include "bolsa.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_bolsa : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void manifiesto_porNombreYCodificado();
    void manifiesto_deVuelta();
    void manifiesto_leido_data();
    void manifiesto_leido();
    void manifiesto_danado_data();
    void manifiesto_danado();
    void nombre_seguro_data();
    void nombre_seguro();
    void ficha_bytePorByte();
    void declaracion_bytePorByte();
    void leame_diceQueAbrir();
};

namespace {

const QByteArray ceros(32, '\0');
const QByteArray cerosHex(64, '0');

} // namespace

void tst_bolsa::manifiesto_porNombreYCodificado()
{
    const bolsa::Sumas sumas = {
        {"data/b%.txt", ceros}, {"data/a\r\n.txt", QByteArray(32, '\xAB')}, {"data/ñ.txt", ceros}};
    QCOMPARE(bolsa::escribir(sumas),
             "abababababababababababababababababababababababababababababababab"
             "  data/a%0D%0A.txt\n"
                 + cerosHex + "  data/b%25.txt\n" + cerosHex + "  data/ñ.txt\n");
}

void tst_bolsa::manifiesto_deVuelta()
{
    const bolsa::Sumas sumas = {{"data/%0A", ceros}, {"data/%25\n", ceros}, {"data/%\r%41", ceros}};
    QCOMPARE(bolsa::leer(bolsa::escribir(sumas)), std::optional(sumas));
}

void tst_bolsa::manifiesto_leido_data()
{
    QTest::addColumn<QByteArray>("texto");
    QTest::newRow("LF") << cerosHex + "  data/a b\n";
    QTest::newRow("CR LF") << cerosHex + "  data/a b\r\n";
    QTest::newRow("CR") << cerosHex + "  data/a b\r";
    QTest::newRow("sin fin") << cerosHex + "  data/a b";
    QTest::newRow("tabulador") << cerosHex + "\tdata/a b\n";
    QTest::newRow("asterisco") << cerosHex + " *data/a b\n";
    QTest::newRow("lineas en blanco") << "\n\n" + cerosHex + "  data/a b\n\n";
}

void tst_bolsa::manifiesto_leido()
{
    QFETCH(QByteArray, texto);
    QCOMPARE(bolsa::leer(texto), std::optional(bolsa::Sumas{{"data/a b", ceros}}));
}

void tst_bolsa::manifiesto_danado_data()
{
    QTest::addColumn<QByteArray>("texto");
    QTest::newRow("suma corta") << cerosHex.chopped(1) + "  data/a\n";
    QTest::newRow("suma que no lo es") << cerosHex.chopped(1) + "g  data/a\n";
    QTest::newRow("pegado") << cerosHex + "data/a\n";
    QTest::newRow("sin nombre") << cerosHex + "  \n";
    QTest::newRow("dos veces") << cerosHex + "  data/a\n" + cerosHex + "  data/a\n";
    QTest::newRow("sale") << cerosHex + "  data/../../a\n";
    QTest::newRow("absoluto") << cerosHex + "  /etc/passwd\n";
    QTest::newRow("otra cosa") << QByteArray("<html></html>");
}

void tst_bolsa::manifiesto_danado()
{
    QFETCH(QByteArray, texto);
    QVERIFY(!bolsa::leer(texto));
}

void tst_bolsa::nombre_seguro_data()
{
    QTest::addColumn<QByteArray>("nombre");
    QTest::addColumn<bool>("seguro");
    QTest::newRow("corriente") << QByteArray("data/archivos/7.html") << true;
    QTest::newRow("puntos") << QByteArray("data/..a/b..") << true;
    QTest::newRow("vacio") << QByteArray("") << false;
    QTest::newRow("sube") << QByteArray("data/../a") << false;
    QTest::newRow("sube al final") << QByteArray("data/..") << false;
    QTest::newRow("aqui") << QByteArray("./a") << false;
    QTest::newRow("absoluto") << QByteArray("/a") << false;
    QTest::newRow("doble") << QByteArray("a//b") << false;
    QTest::newRow("barra invertida") << QByteArray("data\\..\\a") << false;
    QTest::newRow("unidad") << QByteArray("C:/a") << false;
    QTest::newRow("nulo") << QByteArray("a\0b", 3) << false;
}

void tst_bolsa::nombre_seguro()
{
    QFETCH(QByteArray, nombre);
    QFETCH(bool, seguro);
    QCOMPARE(bolsa::esSegura(nombre), seguro);
}

void tst_bolsa::ficha_bytePorByte()
{
    QCOMPARE(bolsa::textoDatos({.historico = "123-2010\nX: y",
                                .programa = "parvanel-revisor 4.0.0",
                                .fecha = QDate(2026, 1, 9),
                                .bytes = 1234567,
                                .archivos = 89}),
             QByteArray("Bag-Software-Agent: parvanel-revisor 4.0.0\n"
                        "Bagging-Date: 2026-01-09\n"
                        "External-Identifier: 123-2010 X: y\n"
                        "Payload-Oxum: 1234567.89\n"));
}

void tst_bolsa::declaracion_bytePorByte()
{
    QCOMPARE(bolsa::textoDeclaracion(),
             QByteArray("BagIt-Version: 1.0\nTag-File-Character-Encoding: UTF-8\n"));
}

void tst_bolsa::leame_diceQueAbrir()
{
    const QByteArray texto = bolsa::textoLeame("123-2010");
    QVERIFY(texto.startsWith("\xEF\xBB\xBF"
                             "COPIA DEL HISTÓRICO 123-2010\r\n"));
    QVERIFY(texto.contains("\r\n    data/index.html\r\n"));
    QVERIFY(!QByteArray(texto).replace("\r\n", "").contains('\n'));
}

QTEST_GUILESS_MAIN(tst_bolsa)
#include "tst_bolsa.moc"
