// SPDX-License-Identifier: MIT
#include "UnidadDePrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DriveCListas : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void lista_porNombreSinMirarLaLetra();
    void lista_empiezaComoSePidio_data();
    void lista_empiezaComoSePidio();
    void lista_ausente_nada_data();
    void lista_ausente_nada();
};

void tst_DriveCListas::lista_porNombreSinMirarLaLetra()
{
    for (const auto &nombre : {u"9-2010"_s, u"10-2010"_s, u"beta"_s, u"Alfa"_s, u"ALFIL"_s,
                               u"Ñandú"_s, u"ñame"_s, u"zeta"_s})
        QVERIFY(m_casa->hacerCarpeta(u"Quorvela/"_s + nombre));
    QVERIFY(m_casa->escribir(u"Quorvela/archivo.txt"_s, "no es carpeta"));
    const QStringList esperadas = {u"C:\\Quorvela\\10-2010"_s, u"C:\\Quorvela\\9-2010"_s,
                                   u"C:\\Quorvela\\Alfa"_s,    u"C:\\Quorvela\\ALFIL"_s,
                                   u"C:\\Quorvela\\beta"_s,    u"C:\\Quorvela\\zeta"_s,
                                   u"C:\\Quorvela\\ñame"_s,    u"C:\\Quorvela\\Ñandú"_s};
    QCOMPARE(m_disco->carpetas(u"C:\\Quorvela"_s), esperadas);
}

void tst_DriveCListas::lista_empiezaComoSePidio_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::addColumn<QStringList>("lista");
    QTest::newRow("mayuscula") << u"C:\\Quorvela"_s << QStringList{u"C:\\Quorvela\\Uno-2010"_s};
    QTest::newRow("minuscula") << u"c:\\quorvela"_s << QStringList{u"c:\\quorvela\\Uno-2010"_s};
    QTest::newRow("con barra") << u"C:\\Quorvela\\"_s << QStringList{u"C:\\Quorvela\\Uno-2010"_s};
    QTest::newRow("sin subcarpetas") << u"C:\\Quorvela\\uno-2010"_s << QStringList();
    QTest::newRow("la unidad") << u"C:\\"_s << QStringList{u"C:\\Quorvela"_s};
}

void tst_DriveCListas::lista_empiezaComoSePidio()
{
    QFETCH(QString, ruta);
    QFETCH(QStringList, lista);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/Uno-2010"_s));
    QCOMPARE(m_disco->carpetas(ruta), lista);
}

void tst_DriveCListas::lista_ausente_nada_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::newRow("no existe") << u"C:\\Quorvela\\nada"_s;
    QTest::newRow("es archivo") << u"C:\\Quorvela\\a.txt"_s;
    QTest::newRow("debajo de un archivo") << u"C:\\Quorvela\\a.txt\\b"_s;
    QTest::newRow("otra unidad") << u"D:\\"_s;
    QTest::newRow("nativa que no existe") << u"/no/existe"_s;
    QTest::newRow("vacia") << QString();
}

void tst_DriveCListas::lista_ausente_nada()
{
    QFETCH(QString, ruta);
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "x"));
    QVERIFY(!m_disco->carpetas(ruta));
}

QTEST_GUILESS_MAIN(tst_DriveCListas)
#include "tst_DriveCListas.moc"
