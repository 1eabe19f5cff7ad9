// SPDX-License-Identifier: MIT
// Names in whatever letter case: one entry, and the spelling that was there first.
#include "UnidadDePrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DriveCEscritura : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void raizEnOtraEscritura_sirve();
    void raizNueva_enLaEscrituraPedida();
    void nombre_sinMirarLaLetra_data();
    void nombre_sinMirarLaLetra();
    void escrituraExistente_gana();
    void nombresCasiIguales_sonDistintos_data();
    void nombresCasiIguales_sonDistintos();
    void raizEnOtraEscritura_sinEnlace();
    void archivoEnOtraEscritura_sinEnlace();
    void nombreEnMinusculas_seHallaEnOtraEscritura();
    void trasBorrarElUnico_vuelveAServirOtraEscritura();
};

void tst_DriveCEscritura::raizEnOtraEscritura_sirve()
{
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    QVERIFY(m_casa->hacerCarpeta(u"QUORVELA"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(m_disco->agregar(u"c:\\Quorvela\\a.txt"_s, "a"));
    QCOMPARE(m_casa->entradas(), QStringList{u"QUORVELA"_s});
    QCOMPARE(m_casa->leer(u"QUORVELA/a.txt"_s), QByteArray("a"));
}

void tst_DriveCEscritura::raizNueva_enLaEscrituraPedida()
{
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    QVERIFY(m_disco->crearCarpeta(u"c:\\QUORVELA\\"_s));
    QCOMPARE(m_casa->entradas(), QStringList{u"QUORVELA"_s});
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "a"));
    QCOMPARE(m_casa->leer(u"QUORVELA/a.txt"_s), QByteArray("a"));
}

void tst_DriveCEscritura::nombre_sinMirarLaLetra_data()
{
    QTest::addColumn<QString>("enDisco");
    QTest::addColumn<QString>("pedido");
    QTest::newRow("igual") << u"Quorvela/Notas/Salon.html"_s
                           << u"C:\\Quorvela\\Notas\\Salon.html"_s;
    QTest::newRow("minusculas") << u"Quorvela/Notas/Salon.html"_s
                                << u"c:\\quorvela\\notas\\salon.html"_s;
    QTest::newRow("mayusculas") << u"Quorvela/notas/salon.html"_s
                                << u"C:\\QUORVELA\\NOTAS\\SALON.HTML"_s;
    QTest::newRow("acentos") << u"Quorvela/ÁRBOL/ñandú.html"_s
                             << u"C:\\Quorvela\\árbol\\ÑANDÚ.html"_s;
    QTest::newRow("fuera de la pagina de codigos")
        << u"Quorvela/notas/Ωmega.html"_s << u"C:\\Quorvela\\notas\\ωMEGA.html"_s;
}

void tst_DriveCEscritura::nombre_sinMirarLaLetra()
{
    QFETCH(QString, enDisco);
    QFETCH(QString, pedido);
    QVERIFY(m_casa->hacerCarpeta(enDisco.section(u'/', 0, 1)));
    QVERIFY(m_casa->escribir(enDisco, "uno"));

    QCOMPARE(m_disco->largo(pedido), 3);
    QCOMPARE(m_disco->rutaNativa(pedido), m_casa->nativa(enDisco));
    QVERIFY(m_disco->agregar(pedido, "dos"));
    QCOMPARE(m_casa->leer(enDisco), QByteArray("unodos"));
    const auto entrante = m_disco->recibir(pedido);
    QVERIFY(entrante);
    QCOMPARE(entrante->dispositivo().write("tres"), 4);
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->leer(enDisco), QByteArray("tres"));
    QCOMPARE(m_casa->entradas(enDisco.section(u'/', 0, 1)), QStringList{enDisco.section(u'/', 2)});
    QVERIFY(m_disco->borrar(pedido));
    QVERIFY(m_casa->entradas(enDisco.section(u'/', 0, 1)).isEmpty());
}

void tst_DriveCEscritura::escrituraExistente_gana()
{
    QVERIFY(m_casa->escribir(u"Quorvela/Logo.PNG"_s, "a"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\logo.png"_s, "b"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\nuevo.PNG"_s, "c"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\NUEVO.png"_s, "d"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"Logo.PNG"_s, u"nuevo.PNG"_s}));
    QCOMPARE(m_casa->leer(u"Quorvela/Logo.PNG"_s), QByteArray("ab"));
    QCOMPARE(m_casa->leer(u"Quorvela/nuevo.PNG"_s), QByteArray("cd"));
}

// Letter case is all that is passed over: a letter is never taken for two others.
void tst_DriveCEscritura::nombresCasiIguales_sonDistintos_data()
{
    QTest::addColumn<QString>("uno");
    QTest::addColumn<QString>("otro");
    QTest::newRow("acento") << u"Peña.html"_s << u"Pena.html"_s;
    QTest::newRow("eszett") << u"Strauß.html"_s << u"STRAUSS.html"_s;
    QTest::newRow("ligadura") << u"ﬁnal.html"_s << u"FINAL.html"_s;
    QTest::newRow("blanco") << u"a b.html"_s << u"ab.html"_s;
}

void tst_DriveCEscritura::nombresCasiIguales_sonDistintos()
{
    QFETCH(QString, uno);
    QFETCH(QString, otro);
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\"_s + uno, "1"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\"_s + otro, "2"));
    QCOMPARE(m_casa->leer(u"Quorvela/"_s + uno), QByteArray("1"));
    QCOMPARE(m_casa->leer(u"Quorvela/"_s + otro), QByteArray("2"));
}

// The link would stand beside the archive, in the home folder.
void tst_DriveCEscritura::raizEnOtraEscritura_sinEnlace()
{
    QVERIFY(!m_disco->crearCarpeta(u"c:\\quorvela"_s));
    QCOMPARE(m_casa->entradas(), QStringList{u"Quorvela"_s});
}

void tst_DriveCEscritura::archivoEnOtraEscritura_sinEnlace()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "1"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\A.txt"_s, "2"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.txt"_s});
}

// Whether the program remembers its spelling or looks for it, each is found.
void tst_DriveCEscritura::nombreEnMinusculas_seHallaEnOtraEscritura()
{
    QVERIFY(m_casa->escribir(u"Quorvela/uno.html"_s, "1"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\UNO.html"_s), 1);
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\dos.html"_s, "22"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\Dos.HTML"_s), 2);
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\Dos.HTML"_s, "2"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"dos.html"_s, u"uno.html"_s}));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\DOS.html"_s));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\DOS.html"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"uno.html"_s});
}

void tst_DriveCEscritura::trasBorrarElUnico_vuelveAServirOtraEscritura()
{
    QVERIFY(m_casa->escribir(u"Quorvela/logo.png"_s, "1"));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\LOGO.png"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\logo.png"_s, "2"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\LOGO.png"_s), 1);
}

QTEST_GUILESS_MAIN(tst_DriveCEscritura)
#include "tst_DriveCEscritura.moc"
