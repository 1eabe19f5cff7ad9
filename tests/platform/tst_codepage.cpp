// SPDX-License-Identifier: MIT
#include "platform/codepage.h"

#include <QTest>

#include <clocale>

using namespace Qt::StringLiterals;

class tst_codepage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bytesConCaracter_vanYVuelven_data();
    void bytesConCaracter_vanYVuelven();
    void todosLosBytes_sobreviven();
    void textoLargo_conservaElOrden();
    void caracterEnCualquierSitio_seConvierte_data();
    void caracterEnCualquierSitio_seConvierte();
    void caracterAjeno_esInterrogacion_data();
    void caracterAjeno_esInterrogacion();
    void otraLocalizacion_noCambiaNada();
    void mayusculasYMinusculas_data();
    void mayusculasYMinusculas();
    void letraSinPareja_queda_data();
    void letraSinPareja_queda();
};

// Every byte whose character is not the one of its number, and the borders of the block.
void tst_codepage::bytesConCaracter_vanYVuelven_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<int>("caracter");
    static constexpr struct {
        int byte;
        int caracter;
    } filas[] = {{0x00, 0x0000}, {0x0A, 0x000A}, {0x20, 0x0020}, {0x41, 0x0041}, {0x7E, 0x007E},
                 {0x7F, 0x007F}, {0x80, 0x20AC}, {0x81, 0x0081}, {0x82, 0x201A}, {0x83, 0x0192},
                 {0x84, 0x201E}, {0x85, 0x2026}, {0x86, 0x2020}, {0x87, 0x2021}, {0x88, 0x02C6},
                 {0x89, 0x2030}, {0x8A, 0x0160}, {0x8B, 0x2039}, {0x8C, 0x0152}, {0x8D, 0x008D},
                 {0x8E, 0x017D}, {0x8F, 0x008F}, {0x90, 0x0090}, {0x91, 0x2018}, {0x92, 0x2019},
                 {0x93, 0x201C}, {0x94, 0x201D}, {0x95, 0x2022}, {0x96, 0x2013}, {0x97, 0x2014},
                 {0x98, 0x02DC}, {0x99, 0x2122}, {0x9A, 0x0161}, {0x9B, 0x203A}, {0x9C, 0x0153},
                 {0x9D, 0x009D}, {0x9E, 0x017E}, {0x9F, 0x0178}, {0xA0, 0x00A0}, {0xA1, 0x00A1},
                 {0xBF, 0x00BF}, {0xC1, 0x00C1}, {0xD1, 0x00D1}, {0xF1, 0x00F1}, {0xFF, 0x00FF}};
    for (const auto &fila : filas)
        QTest::addRow("%02X", fila.byte) << fila.byte << fila.caracter;
}

void tst_codepage::bytesConCaracter_vanYVuelven()
{
    QFETCH(int, byte);
    QFETCH(int, caracter);
    const QByteArray bytes(1, static_cast<char>(byte));
    const QString texto(QChar(static_cast<char16_t>(caracter)));
    QCOMPARE(codepage::aTexto(bytes), texto);
    QCOMPARE(codepage::aBytes(texto), bytes);
}

void tst_codepage::todosLosBytes_sobreviven()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    const QString texto = codepage::aTexto(bytes);
    QCOMPARE(texto.size(), 256);
    QCOMPARE(codepage::aBytes(texto), bytes);
}

void tst_codepage::textoLargo_conservaElOrden()
{
    QCOMPARE(codepage::aTexto("Mu\xF1oz \x93"
                              "Pe\xF1"
                              "a\x94 \x80 5"),
             u"Muñoz “Peña” € 5"_s);
    QCOMPARE(codepage::aBytes(u"Muñoz “Peña” € 5"_s), QByteArray("Mu\xF1oz \x93"
                                                                 "Pe\xF1"
                                                                 "a\x94 \x80 5"));
    QCOMPARE(codepage::aTexto({}), QString());
    QCOMPARE(codepage::aBytes({}), QByteArray());
}

// Pages are long, and one character among thousands is converted as it is in a short text.
void tst_codepage::caracterEnCualquierSitio_seConvierte_data()
{
    QTest::addColumn<int>("sitio");
    for (const int sitio : {0, 1, 15, 16, 254, 255, 256, 257, 511, 512, 598, 599})
        QTest::addRow("%d", sitio) << sitio;
}

void tst_codepage::caracterEnCualquierSitio_seConvierte()
{
    QFETCH(int, sitio);
    const QString llano(600, u'\u00F1');
    const QByteArray llanos(600, '\xF1');

    QString texto = llano;
    QByteArray bytes = llanos;
    texto[sitio] = u'€';
    bytes[sitio] = '\x80';
    QCOMPARE(codepage::aTexto(bytes), texto);
    QCOMPARE(codepage::aBytes(texto), bytes);

    QCOMPARE(codepage::aBytes(QString(llano).replace(sitio, 1, u"😀"_s)),
             QByteArray(llanos).replace(sitio, 1, "?"));
    QCOMPARE(codepage::aBytes(QString(llano).replace(sitio, 1, u"Ω"_s)),
             QByteArray(llanos).replace(sitio, 1, "?"));
}

void tst_codepage::caracterAjeno_esInterrogacion_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("griego") << u"aΩb"_s << QByteArray("a?b");
    QTest::newRow("latino ampliado") << u"ĀŁ"_s << QByteArray("??");
    QTest::newRow("fuera del plano basico, uno solo") << u"a😀b"_s << QByteArray("a?b");
    QTest::newRow("mitad de un par") << QString(QChar(0xD83D)) << QByteArray("?");
    QTest::newRow("acento combinante") << u"e\u0301"_s << QByteArray("e?");
    // Its number is one of the block's, its character is not.
    QTest::newRow("control 0080") << QString(QChar(0x80)) << QByteArray("?");
    QTest::newRow("control 009F") << QString(QChar(0x9F)) << QByteArray("?");
    QTest::newRow("interrogacion misma") << u"?"_s << QByteArray("?");
}

void tst_codepage::caracterAjeno_esInterrogacion()
{
    QFETCH(QString, texto);
    QFETCH(QByteArray, bytes);
    QCOMPARE(codepage::aBytes(texto), bytes);
}

void tst_codepage::otraLocalizacion_noCambiaNada()
{
    const QByteArray antes = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    const QString texto = codepage::aTexto("\x80\xD1");
    const QByteArray bytes = codepage::aBytes(u"€Ñ"_s);
    const QString minusculas = codepage::enMinusculas(u"IÑ"_s);
    std::setlocale(LC_ALL, antes.constData());
    QCOMPARE(texto, u"€Ñ"_s);
    QCOMPARE(bytes, QByteArray("\x80\xD1"));
    QCOMPARE(minusculas, u"iñ"_s);
}

void tst_codepage::mayusculasYMinusculas_data()
{
    QTest::addColumn<QString>("minusculas");
    QTest::addColumn<QString>("mayusculas");
    QTest::newRow("alfabeto") << u"abcdefghijklmnopqrstuvwxyz"_s << u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s;
    QTest::newRow("castellano") << u"áéíóúüñ"_s << u"ÁÉÍÓÚÜÑ"_s;
    QTest::newRow("C0 a DE") << u"àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"_s
                             << u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ"_s;
    QTest::newRow("del bloque 80") << u"šœžÿ"_s << u"ŠŒŽŸ"_s;
    QTest::newRow("mezcla") << u"año 2010 (1º)"_s << u"AÑO 2010 (1º)"_s;
    QTest::newRow("vacio") << QString() << QString();
}

void tst_codepage::mayusculasYMinusculas()
{
    QFETCH(QString, minusculas);
    QFETCH(QString, mayusculas);
    QCOMPARE(codepage::enMayusculas(minusculas), mayusculas);
    QCOMPARE(codepage::enMinusculas(mayusculas), minusculas);
    QCOMPARE(codepage::enMayusculas(mayusculas), mayusculas);
    QCOMPARE(codepage::enMinusculas(minusculas), minusculas);
}

// A letter whose other case is two letters, or none of this code page.
void tst_codepage::letraSinPareja_queda_data()
{
    QTest::addColumn<QString>("letra");
    QTest::newRow("eszett") << u"ß"_s;
    QTest::newRow("micro") << u"µ"_s;
    QTest::newRow("florin") << u"ƒ"_s;
    QTest::newRow("ordinal femenino") << u"ª"_s;
    QTest::newRow("ordinal masculino") << u"º"_s;
    QTest::newRow("por") << u"×"_s;
    QTest::newRow("entre") << u"÷"_s;
    QTest::newRow("cifras y signos") << u"0189 .,;:-_<>&\"'"_s;
    QTest::newRow("griega, fuera de la pagina") << u"ω"_s;
}

void tst_codepage::letraSinPareja_queda()
{
    QFETCH(QString, letra);
    QCOMPARE(codepage::enMayusculas(letra), letra);
    QCOMPARE(codepage::enMinusculas(letra), letra);
}

QTEST_GUILESS_MAIN(tst_codepage)
#include "tst_codepage.moc"
