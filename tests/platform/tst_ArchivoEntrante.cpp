// SPDX-License-Identifier: MIT
#include "UnidadDePrueba.h"
#include "escenario/DiscoLleno.h"
#include "escenario/SinPermiso.h"

#include <QTest>

#include <algorithm>
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
    void carpetaDesaparecida_noSePublica();
    void nombreNuevo_seEncuentraEnSeguida();

    void sinPermiso_todoFalla();
    void archivoSinPermiso_noSeAgrega();
    void limite_noSePublica_data();
    void limite_noSePublica();
    void limite_agregarDejaLoEscrito();
    void discoLleno_noSePublica();
    void discoLleno_agregarFalla();

    void agregar_alFinal();
    void agregar_nadaCreaElArchivo();

private:
    QString carpeta() const { return m_casa->ruta(u"Quorvela"_s); }
    // A temporary folder is its owner's alone; here somebody else has to reach what is in it.
    void abrirLaCasa() const
    {
        QFile::setPermissions(m_casa->ruta(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                                  | QFile::ReadGroup | QFile::ExeGroup
                                                  | QFile::ReadOther | QFile::ExeOther);
    }
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

void tst_ArchivoEntrante::carpetaDesaparecida_noSePublica()
{
    auto entrante = m_disco->recibir(u"C:\\Quorvela\\logo.png"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write("x");
    QVERIFY(QDir(carpeta()).removeRecursively());
    QVERIFY(!entrante->publicar());
    entrante.reset();
    QVERIFY(m_casa->entradas().isEmpty());
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

void tst_ArchivoEntrante::sinPermiso_todoFalla()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "a"));
    abrirLaCasa();
    {
        const SinPermiso sinPermiso(carpeta());
        QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
        QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\b.txt"_s, "b"));
        QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\b.txt"_s));
        QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\a.txt"_s));
        QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
        QCOMPARE(m_disco->largo(u"C:\\Quorvela\\A.txt"_s), 1); // reading goes on
        QCOMPARE(m_disco->carpetas(u"C:\\Quorvela"_s), QStringList());
    }
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.txt"_s});
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\b.txt"_s, "b")); // and nothing is remembered of it
}

void tst_ArchivoEntrante::archivoSinPermiso_noSeAgrega()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "a"));
    abrirLaCasa();
    {
        const SinPermiso sinPermiso(m_casa->ruta(u"Quorvela/a.txt"_s));
        QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "b"));
    }
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("a"));
}

void tst_ArchivoEntrante::limite_noSePublica_data()
{
    QTest::addColumn<int>("trozo");
    QTest::newRow("de una vez") << 50000;
    QTest::newRow("por trozos que pasan sin espera") << 25000;
    QTest::newRow("por trozos que se juntan") << 1000;
    QTest::newRow("la falta en el ultimo trozo") << 39999;
}

void tst_ArchivoEntrante::limite_noSePublica()
{
    QFETCH(int, trozo);
    QVERIFY(m_casa->escribir(u"Quorvela/a.jpg"_s, "anterior"));
    {
        const LimiteDeArchivo limite(40000);
        auto entrante = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
        QVERIFY(entrante);
        // Whether a write notices, or only the end, is the device's matter.
        for (int falta = 50000; falta > 0; falta -= trozo) {
            [[maybe_unused]] const qint64 escritos =
                entrante->dispositivo().write(QByteArray(std::min(trozo, falta), 'x'));
        }
        QVERIFY(!entrante->publicar());
    }
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.jpg"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/a.jpg"_s), QByteArray("anterior"));
}

void tst_ArchivoEntrante::limite_agregarDejaLoEscrito()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "0123456789"));
    {
        const LimiteDeArchivo limite(15);
        QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "abcdefghij"));
    }
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("0123456789abcde"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "f"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("0123456789abcdef"));
}

void tst_ArchivoEntrante::discoLleno_noSePublica()
{
    const DiscoPequeno lleno(carpeta(), 64);
    if (!lleno.montado())
        QSKIP("mounting a disk takes an administrator");
    auto grande = m_disco->recibir(u"C:\\Quorvela\\grande.jpg"_s);
    QVERIFY(grande);
    [[maybe_unused]] const qint64 escritos = grande->dispositivo().write(QByteArray(200000, 'x'));
    QVERIFY(!grande->publicar());
    grande.reset();
    QVERIFY(m_casa->entradas(u"Quorvela"_s).isEmpty());

    // What was taken up is free again.
    const auto pequeno = m_disco->recibir(u"C:\\Quorvela\\pequeno.jpg"_s);
    QVERIFY(pequeno);
    QCOMPARE(pequeno->dispositivo().write(QByteArray(20000, 'y')), 20000);
    QVERIFY(pequeno->publicar());
    QCOMPARE(m_casa->leer(u"Quorvela/pequeno.jpg"_s), QByteArray(20000, 'y'));
}

void tst_ArchivoEntrante::discoLleno_agregarFalla()
{
    const DiscoPequeno lleno(carpeta(), 64);
    if (!lleno.montado())
        QSKIP("mounting a disk takes an administrator");
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\grande.txt"_s, QByteArray(200000, 'x')));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\grande.txt"_s, "y"));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\grande.txt"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\grande.txt"_s, "z"));
    QCOMPARE(m_casa->leer(u"Quorvela/grande.txt"_s), QByteArray("z"));
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
