// SPDX-License-Identifier: MIT
// Nothing outside of the archive is touched through links, nor through what is no file.
#include "UnidadDePrueba.h"

#include <QScopeGuard>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_DriveCEnlaces : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void enlaceHaciaFuera_todoFalla_data();
    void enlaceHaciaFuera_todoFalla();
    void enlaceHaciaDentro_sirve_data();
    void enlaceHaciaDentro_sirve();
    void raizQueEsEnlace_sirve();
    void enlacesEnRueda_todoFalla();
    void enlaceAUnArchivo_sirve();
    void noEsArchivo_todoFalla_data();
    void noEsArchivo_todoFalla();
    void archivoConOtroNombreFuera_noCambia();
};

void tst_DriveCEnlaces::enlaceHaciaFuera_todoFalla_data()
{
    QTest::addColumn<QString>("destino"); // of a link "e" in the archive, to start from the home
    QTest::addColumn<QString>("ruta");
    QTest::newRow("carpeta") << u"../otra"_s << u"C:\\Quorvela\\e\\a.txt"_s;
    QTest::newRow("carpeta, archivo nuevo") << u"../otra"_s << u"C:\\Quorvela\\e\\nuevo.txt"_s;
    QTest::newRow("carpeta en otra letra") << u"../otra"_s << u"C:\\Quorvela\\E\\a.txt"_s;
    QTest::newRow("la personal entera") << u".."_s << u"C:\\Quorvela\\e\\a.txt"_s;
    // The way out and in again still leads through a folder that is not the archive's.
    QTest::newRow("hermana de nombre parecido") << u"../Quorvela2"_s << u"C:\\Quorvela\\e\\a.txt"_s;
    QTest::newRow("archivo") << u"../otra/a.txt"_s << u"C:\\Quorvela\\e"_s;
    QTest::newRow("archivo en otra letra") << u"../otra/a.txt"_s << u"C:\\Quorvela\\E"_s;
    QTest::newRow("archivo que no existe") << u"../otra/nuevo.txt"_s << u"C:\\Quorvela\\e"_s;
}

void tst_DriveCEnlaces::enlaceHaciaFuera_todoFalla()
{
    QFETCH(QString, destino);
    QFETCH(QString, ruta);
    QVERIFY(m_casa->hacerCarpeta(u"otra"_s));
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela2"_s));
    for (const auto &archivo : {u"a.txt"_s, u"otra/a.txt"_s, u"Quorvela2/a.txt"_s})
        QVERIFY(m_casa->escribir(archivo, "ajeno"));
    QVERIFY(m_casa->enlazar(destino, u"Quorvela/e"_s));
    QVERIFY(!m_disco->crearCarpeta(ruta));
    QVERIFY(!m_disco->agregar(ruta, "x"));
    QVERIFY(!m_disco->recibir(ruta));
    QVERIFY(!m_disco->borrar(ruta));
    QVERIFY(!m_disco->largo(ruta));
    QCOMPARE(m_casa->enlace(u"Quorvela/e"_s), destino.toUtf8());
    for (const auto &hermana : {u"otra"_s, u"Quorvela2"_s})
        QCOMPARE(m_casa->entradas(hermana), QStringList{u"a.txt"_s});
    for (const auto &archivo : {u"a.txt"_s, u"otra/a.txt"_s, u"Quorvela2/a.txt"_s})
        QCOMPARE(m_casa->leer(archivo), QByteArray("ajeno"));
}

void tst_DriveCEnlaces::enlaceHaciaDentro_sirve_data()
{
    QTest::addColumn<QString>("destino"); // "%1" is the home folder
    QTest::newRow("relativo") << u"notas"_s;
    QTest::newRow("desde la raiz del disco") << u"%1/Quorvela/notas"_s;
    QTest::newRow("que sale y vuelve") << u"../Quorvela/notas"_s;
    QTest::newRow("por otro enlace") << u"segundo"_s;
}

// File managers write the links that they make from the disk's top.
void tst_DriveCEnlaces::enlaceHaciaDentro_sirve()
{
    QFETCH(QString, destino);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/notas/sub"_s));
    QVERIFY(m_casa->enlazar(m_casa->ruta(u"Quorvela/notas"_s), u"Quorvela/segundo"_s));
    QVERIFY(m_casa->enlazar(destino.contains(u"%1"_s) ? destino.arg(m_casa->ruta()) : destino,
                            u"Quorvela/corto"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\corto\\a.txt"_s, "a"));
    QCOMPARE(m_casa->leer(u"Quorvela/notas/a.txt"_s), QByteArray("a"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\CORTO\\Sub\\b.txt"_s, "b"));
    QCOMPARE(m_casa->leer(u"Quorvela/notas/sub/b.txt"_s), QByteArray("b"));
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\corto\\c.jpg"_s);
    QVERIFY(entrante);
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->entradas(u"Quorvela/notas"_s),
             (QStringList{u"a.txt"_s, u"c.jpg"_s, u"sub"_s}));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\corto\\a.txt"_s));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\corto\\c.jpg"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela/notas"_s), QStringList{u"sub"_s});
}

// A user may keep the archive on another disk; the link's folder then is the archive root.
void tst_DriveCEnlaces::raizQueEsEnlace_sirve()
{
    const CarpetaPersonal disquera;
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    QVERIFY(m_casa->enlazar(disquera.ruta(), u"Quorvela"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\123-2010"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\123-2010\\a.txt"_s, "a"));
    QCOMPARE(disquera.leer(u"123-2010/a.txt"_s), QByteArray("a"));
}

void tst_DriveCEnlaces::enlacesEnRueda_todoFalla()
{
    QVERIFY(m_casa->enlazar(u"b"_s, u"Quorvela/a"_s));
    QVERIFY(m_casa->enlazar(u"a"_s, u"Quorvela/b"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\a\\x"_s));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a\\x"_s, "x"));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a"_s, "x"));
    QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\a"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\a"_s));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\a"_s));
}

void tst_DriveCEnlaces::enlaceAUnArchivo_sirve()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/notas"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "a"));
    QVERIFY(m_casa->enlazar(u"../a.txt"_s, u"Quorvela/notas/e.txt"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\notas\\E.txt"_s, "b"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\notas\\e.txt"_s), 2);
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("ab"));
    // The link itself is deleted, and what is written afterwards is a file.
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\notas\\e.txt"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\notas\\e.txt"_s, "c"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("ab"));
    QCOMPARE(m_casa->leer(u"Quorvela/notas/e.txt"_s), QByteArray("c"));
    QCOMPARE(m_casa->enlace(u"Quorvela/notas/e.txt"_s), QByteArray());
}

void tst_DriveCEnlaces::noEsArchivo_todoFalla_data()
{
    QTest::addColumn<int>("clase");
    QTest::addColumn<bool>("porEnlace");
    QTest::addColumn<bool>("conLector");
    QTest::newRow("tuberia con lector") << int(S_IFIFO) << false << true;
    QTest::newRow("tuberia con lector, por un enlace") << int(S_IFIFO) << true << true;
    QTest::newRow("casilla") << int(S_IFSOCK) << false << false;
    QTest::newRow("casilla, por un enlace") << int(S_IFSOCK) << true << false;
    QTest::newRow("tuberia") << int(S_IFIFO) << false << false;
    QTest::newRow("tuberia, por un enlace") << int(S_IFIFO) << true << false;
}

// Without a wait, too: nobody may ever read from the pipe.
void tst_DriveCEnlaces::noEsArchivo_todoFalla()
{
    QFETCH(int, clase);
    QFETCH(bool, porEnlace);
    QFETCH(bool, conLector);
    const QByteArray nativa = QFile::encodeName(m_casa->ruta(u"Quorvela/raro"_s));
    QCOMPARE(::mknod(nativa.constData(), static_cast<mode_t>(clase) | 0600, 0), 0);
    QVERIFY(m_casa->enlazar(u"raro"_s, u"Quorvela/enlace"_s));
    const int lector = conLector ? ::open(nativa.constData(), O_RDWR | O_CLOEXEC) : -1;
    const auto cierre = qScopeGuard([lector] { ::close(lector); });
    const QString ruta = porEnlace ? u"C:\\Quorvela\\enlace"_s : u"C:\\Quorvela\\Raro"_s;
    QVERIFY(!m_disco->largo(ruta));
    QVERIFY(!m_disco->agregar(ruta, "x"));
    QVERIFY(!m_disco->recibir(ruta));
    QVERIFY(!m_disco->borrar(ruta));
    QVERIFY(!m_disco->crearCarpeta(ruta));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).filter(u"raro"_s), QStringList{u"raro"_s});
    QCOMPARE(m_casa->enlace(u"Quorvela/enlace"_s), QByteArray("raro"));
}

// Nothing tells where a file's other names stand.
void tst_DriveCEnlaces::archivoConOtroNombreFuera_noCambia()
{
    const auto juntar = [this] {
        return ::link(QFile::encodeName(m_casa->ruta(u"ajeno.txt"_s)).constData(),
                      QFile::encodeName(m_casa->ruta(u"Quorvela/a.txt"_s)).constData())
               == 0;
    };
    QVERIFY(m_casa->escribir(u"ajeno.txt"_s, "ajeno"));
    QVERIFY(juntar());
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "x"));
    QCOMPARE(m_casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\a.txt"_s), 5);
    // Taking the one name away, or giving it to another file, leaves the other as it is.
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "x"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("x"));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(juntar());
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\a.txt"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write("y");
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("y"));
    QCOMPARE(m_casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
}

QTEST_GUILESS_MAIN(tst_DriveCEnlaces)
#include "tst_DriveCEnlaces.moc"
