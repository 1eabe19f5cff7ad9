// SPDX-License-Identifier: MIT
// Writing a file that was deleted before, and that another program may have written meanwhile.
#include "UnidadDePrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DriveCEscribir : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void escribir_creaElArchivo();
    void archivoDeOtroPrograma_seReemplaza();
    void dondeNoSePuede_falla_data();
    void dondeNoSePuede_falla();
};

void tst_DriveCEscribir::escribir_creaElArchivo()
{
    QVERIFY(m_disco->escribir(u"C:\\Quorvela\\a.html"_s, "uno\r\n"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.html"_s), QByteArray("uno\r\n"));
}

void tst_DriveCEscribir::archivoDeOtroPrograma_seReemplaza()
{
    DriveC otro(m_casa->ruta());
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\a.html"_s));
    QVERIFY(otro.escribir(u"C:\\Quorvela\\a.html"_s, "otro\r\n"));
    QVERIFY(m_disco->escribir(u"C:\\Quorvela\\a.html"_s, "uno\r\n"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.html"_s), QByteArray("uno\r\n"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.html"_s});
    // Another spelling of it is the same file to both.
    QVERIFY(otro.escribir(u"C:\\Quorvela\\A.HTML"_s, "otra vez\r\n"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 1);
    QCOMPARE(m_casa->leer(u"Quorvela/"_s + m_casa->entradas(u"Quorvela"_s).first()),
             QByteArray("otra vez\r\n"));
}

void tst_DriveCEscribir::dondeNoSePuede_falla_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::newRow("a folder") << u"C:\\Quorvela\\carpeta"_s;
    QTest::newRow("no folder") << u"C:\\Quorvela\\no\\a.html"_s;
    QTest::newRow("a refused name") << u"C:\\Quorvela\\a|b.html"_s;
    QTest::newRow("outside") << u"C:\\Quorvela\\..\\a.html"_s;
    QTest::newRow("a separator at the end") << u"C:\\Quorvela\\a.html\\"_s;
}

void tst_DriveCEscribir::dondeNoSePuede_falla()
{
    QFETCH(QString, ruta);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/carpeta"_s));
    QVERIFY(!m_disco->escribir(ruta, "uno\r\n"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"carpeta"_s});
    QCOMPARE(m_casa->entradas(), QStringList{u"Quorvela"_s});
}

QTEST_GUILESS_MAIN(tst_DriveCEscribir)
#include "tst_DriveCEscribir.moc"
