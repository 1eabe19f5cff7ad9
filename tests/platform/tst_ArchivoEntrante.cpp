// SPDX-License-Identifier: MIT
#include "UnidadDePrueba.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_ArchivoEntrante : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void entero_tomaSuNombre_data();
    void entero_tomaSuNombre();
    void enMarcha_soloTemporalConPunto();
    void abandonado_noDejaNada();
    void abandonado_elAnteriorQueda();
    void publicado_reemplazaAlAnterior();
    void variosALaVez_noSeMezclan();
    void carpetaEnSuNombre_noSePublica();
    void nombreNuevo_seEncuentraEnSeguida();

    void agregar_alFinal();
    void agregar_nadaCreaElArchivo();
};

void tst_ArchivoEntrante::entero_tomaSuNombre_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("vacio") << QByteArray();
    QTest::newRow("con ceros y saltos") << QByteArray("\x00\r\n\xFF\x1A", 5);
    QTest::newRow("mayor que los bloques de escritura") << QByteArray(300000, '\x81');
}

void tst_ArchivoEntrante::entero_tomaSuNombre()
{
    QFETCH(QByteArray, bytes);
    const auto entrante = m_disco->recibir(u"c:\\Quorvela\\Logo.png"_s);
    QVERIFY(entrante);
    QCOMPARE(entrante->dispositivo().write(bytes), bytes.size());
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"Logo.png"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/Logo.png"_s), bytes);
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\logo.PNG"_s), bytes.size());
}

void tst_ArchivoEntrante::enMarcha_soloTemporalConPunto()
{
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\logo.png"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write(QByteArray(100000, 'x'));
    const QStringList entradas = m_casa->entradas(u"Quorvela"_s);
    QCOMPARE(entradas.size(), 1);
    QVERIFY2(entradas.first().startsWith(u'.'), qPrintable(entradas.first()));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\logo.png"_s));
    QVERIFY(m_casa->entradas() == QStringList{u"Quorvela"_s}); // no temporary anywhere else
}

void tst_ArchivoEntrante::abandonado_noDejaNada()
{
    auto entrante = m_disco->recibir(u"C:\\Quorvela\\logo.png"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write(QByteArray(100000, 'x'));
    entrante.reset();
    QVERIFY(m_casa->entradas(u"Quorvela"_s).isEmpty());
}

void tst_ArchivoEntrante::abandonado_elAnteriorQueda()
{
    QVERIFY(m_casa->escribir(u"Quorvela/logo.png"_s, "anterior"));
    auto entrante = m_disco->recibir(u"C:\\Quorvela\\logo.png"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write("nuevo");
    entrante.reset();
    QCOMPARE(m_casa->leer(u"Quorvela/logo.png"_s), QByteArray("anterior"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"logo.png"_s});
}

void tst_ArchivoEntrante::publicado_reemplazaAlAnterior()
{
    QVERIFY(m_casa->escribir(u"Quorvela/Logo.png"_s, "anterior y mas largo"));
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\LOGO.png"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write("nuevo");
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->leer(u"Quorvela/Logo.png"_s), QByteArray("nuevo"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"Logo.png"_s});
}

void tst_ArchivoEntrante::variosALaVez_noSeMezclan()
{
    const auto uno = m_disco->recibir(u"C:\\Quorvela\\uno.png"_s);
    const auto dos = m_disco->recibir(u"C:\\Quorvela\\dos.png"_s);
    auto tres = m_disco->recibir(u"C:\\Quorvela\\dos.png"_s); // of the same name
    QVERIFY(uno && dos && tres);
    uno->dispositivo().write("1");
    dos->dispositivo().write("2");
    tres->dispositivo().write("3");
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 3);
    QVERIFY(dos->publicar());
    QVERIFY(uno->publicar());
    tres.reset();
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"dos.png"_s, u"uno.png"_s}));
    QCOMPARE(m_casa->leer(u"Quorvela/uno.png"_s), QByteArray("1"));
    QCOMPARE(m_casa->leer(u"Quorvela/dos.png"_s), QByteArray("2"));
}

void tst_ArchivoEntrante::carpetaEnSuNombre_noSePublica()
{
    auto entrante = m_disco->recibir(u"C:\\Quorvela\\logo.png"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write("x");
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/logo.png"_s));
    QVERIFY(!entrante->publicar());
    entrante.reset();
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"logo.png"_s});
    QVERIFY(QFileInfo(m_casa->ruta(u"Quorvela/logo.png"_s)).isDir());
}

void tst_ArchivoEntrante::nombreNuevo_seEncuentraEnSeguida()
{
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\LOGO.png"_s));
    auto entrante = m_disco->recibir(u"C:\\Quorvela\\logo.png"_s);
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\LOGO.png"_s));
    entrante->dispositivo().write("abc");
    QVERIFY(entrante->publicar());
    entrante.reset();
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\LOGO.png"_s), 3);
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\LOGO.png"_s));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\Logo.png"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\Logo.png"_s, "z"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"Logo.png"_s});
}

void tst_ArchivoEntrante::agregar_alFinal()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "x\r\n"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, QByteArray("\x00\xD1\n", 3)));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("x\r\n\x00\xD1\n", 6));
}

void tst_ArchivoEntrante::agregar_nadaCreaElArchivo()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, {}));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray());
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\a.txt"_s), 0);
}

QTEST_GUILESS_MAIN(tst_ArchivoEntrante)
#include "tst_ArchivoEntrante.moc"
