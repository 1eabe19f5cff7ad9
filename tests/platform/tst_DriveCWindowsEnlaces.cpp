// SPDX-License-Identifier: MIT
// Nothing outside of the archive is touched through junctions and links.
#include "EntradasDeWindows.h"
#include "UnidadDePrueba.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace entradasDeWindows;

class tst_DriveCWindowsEnlaces : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void junturaHaciaFuera_todoFalla_data();
    void junturaHaciaFuera_todoFalla();
    void junturaHaciaDentro_sirve();
    void raizQueEsJuntura_sirve();
    void raizQueCambiaDeSitio_noSePublica();
    void enlaceAArchivoDeFuera_todoFalla();
    void enlaceAArchivoDeDentro_suDestinoQueda();

private:
    // A link to a file, where this account may make one.
    std::unique_ptr<Enlace> enlazarArchivo(const QString &destino, const QString &lugar) const;
};

void tst_DriveCWindowsEnlaces::junturaHaciaFuera_todoFalla_data()
{
    QTest::addColumn<QString>("destino"); // in the home folder
    QTest::addColumn<QString>("ruta");    // below a junction "e" in the archive
    QTest::newRow("carpeta") << u"otra"_s << u"C:\\Quorvela\\e\\a.txt"_s;
    QTest::newRow("carpeta, archivo nuevo") << u"otra"_s << u"C:\\Quorvela\\e\\nuevo.txt"_s;
    QTest::newRow("carpeta en otra letra") << u"otra"_s << u"C:\\Quorvela\\E\\a.txt"_s;
    QTest::newRow("carpeta de la carpeta") << u"otra"_s << u"C:\\Quorvela\\e\\sub\\a.txt"_s;
    QTest::newRow("la personal entera") << QString() << u"C:\\Quorvela\\e\\a.txt"_s;
    QTest::newRow("hermana de nombre parecido") << u"Quorvela2"_s << u"C:\\Quorvela\\e\\a.txt"_s;
    QTest::newRow("de cuya carpeta es la raiz") << QString() << u"C:\\Quorvela\\e\\otra\\a.txt"_s;
}

void tst_DriveCWindowsEnlaces::junturaHaciaFuera_todoFalla()
{
    QFETCH(QString, destino);
    QFETCH(QString, ruta);
    QVERIFY(m_casa->hacerCarpeta(u"otra/sub"_s));
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela2"_s));
    const QStringList archivos = {u"a.txt"_s, u"otra/a.txt"_s, u"otra/sub/a.txt"_s,
                                  u"Quorvela2/a.txt"_s};
    for (const QString &archivo : archivos)
        QVERIFY(m_casa->escribir(archivo, "ajeno"));
    const Enlace enlace(m_casa->ruta(destino), m_casa->ruta(u"Quorvela/e"_s));
    if (!enlace)
        QSKIP("this disk knows no junctions");
    QVERIFY(QFileInfo(m_casa->ruta(u"Quorvela/e"_s)).isDir());
    QVERIFY(!m_disco->crearCarpeta(ruta));
    QVERIFY(!m_disco->agregar(ruta, "x"));
    QVERIFY(!m_disco->escribir(ruta, "x"));
    QVERIFY(!m_disco->recibir(ruta));
    QVERIFY(!m_disco->borrar(ruta));
    QVERIFY(!m_disco->largo(ruta));
    // Neither goes the junction itself, which is no file.
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\e"_s));
    QCOMPARE(m_casa->entradas(),
             (QStringList{u"Quorvela"_s, u"Quorvela2"_s, u"a.txt"_s, u"otra"_s}));
    QCOMPARE(m_casa->entradas(u"otra"_s), (QStringList{u"a.txt"_s, u"sub"_s}));
    for (const auto &hermana : {u"otra/sub"_s, u"Quorvela2"_s})
        QCOMPARE(m_casa->entradas(hermana), QStringList{u"a.txt"_s});
    for (const QString &archivo : archivos)
        QCOMPARE(m_casa->leer(archivo), QByteArray("ajeno"));
    // As a folder it is listed all the same.
    QCOMPARE(m_disco->carpetas(u"C:\\Quorvela"_s), QStringList{u"C:\\Quorvela\\e"_s});
}

void tst_DriveCWindowsEnlaces::junturaHaciaDentro_sirve()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/notas/Sub"_s));
    const Enlace enlace(m_casa->ruta(u"Quorvela/notas"_s), m_casa->ruta(u"Quorvela/corto"_s));
    if (!enlace)
        QSKIP("this disk knows no junctions");
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\corto\\a.txt"_s, "a"));
    QCOMPARE(m_casa->leer(u"Quorvela/notas/a.txt"_s), QByteArray("a"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\CORTO\\sub\\b.txt"_s, "b"));
    QCOMPARE(m_casa->leer(u"Quorvela/notas/Sub/b.txt"_s), QByteArray("b"));
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\corto\\c.jpg"_s);
    QVERIFY(entrante);
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->entradas(u"Quorvela/notas"_s),
             (QStringList{u"Sub"_s, u"a.txt"_s, u"c.jpg"_s}));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\corto\\a.txt"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela/notas"_s), (QStringList{u"Sub"_s, u"c.jpg"_s}));
}

// A user may keep the archive on another disk; the junction's folder then is the archive root.
void tst_DriveCWindowsEnlaces::raizQueEsJuntura_sirve()
{
    QVERIFY(m_casa->hacerCarpeta(u"disquera"_s));
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    const Enlace enlace(m_casa->ruta(u"disquera"_s), m_casa->ruta(u"Quorvela"_s));
    if (!enlace)
        QSKIP("this disk knows no junctions");
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\123-2010"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\123-2010\\a.txt"_s, "a"));
    QCOMPARE(m_casa->leer(u"disquera/123-2010/a.txt"_s), QByteArray("a"));
    QCOMPARE(m_disco->carpetas(u"C:\\Quorvela"_s), QStringList{u"C:\\Quorvela\\123-2010"_s});
}

void tst_DriveCWindowsEnlaces::raizQueCambiaDeSitio_noSePublica()
{
    QVERIFY(m_casa->hacerCarpeta(u"una"_s));
    QVERIFY(m_casa->hacerCarpeta(u"otra"_s));
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    Enlace enlace(m_casa->ruta(u"una"_s), m_casa->ruta(u"Quorvela"_s));
    if (!enlace)
        QSKIP("this disk knows no junctions");
    auto entrante = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(entrante);
    QCOMPARE(entrante->dispositivo().write("foto"), 4);
    QVERIFY(enlace.quitar());
    const Enlace nuevo(m_casa->ruta(u"otra"_s), m_casa->ruta(u"Quorvela"_s));
    QVERIFY(nuevo);
    QVERIFY(!entrante->publicar());
    entrante.reset();
    QVERIFY(m_casa->entradas(u"una"_s).isEmpty());
    QVERIFY(m_casa->entradas(u"otra"_s).isEmpty());
}

std::unique_ptr<Enlace> tst_DriveCWindowsEnlaces::enlazarArchivo(const QString &destino,
                                                                 const QString &lugar) const
{
    return std::make_unique<Enlace>(m_casa->ruta(destino), m_casa->ruta(lugar));
}

void tst_DriveCWindowsEnlaces::enlaceAArchivoDeFuera_todoFalla()
{
    QVERIFY(m_casa->escribir(u"ajeno.txt"_s, "ajeno"));
    const auto enlace = enlazarArchivo(u"ajeno.txt"_s, u"Quorvela/e.txt"_s);
    if (!*enlace)
        QSKIP("this account may make no links");
    const QString ruta = u"C:\\Quorvela\\E.txt"_s;
    QVERIFY(!m_disco->agregar(ruta, "x"));
    QVERIFY(!m_disco->escribir(ruta, "x"));
    QVERIFY(!m_disco->recibir(ruta));
    QVERIFY(!m_disco->borrar(ruta));
    QVERIFY(!m_disco->largo(ruta));
    QCOMPARE(m_casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"e.txt"_s});
}

// A link is deleted or replaced itself. Where a link cannot be opened itself nothing is deleted.
void tst_DriveCWindowsEnlaces::enlaceAArchivoDeDentro_suDestinoQueda()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/notas"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "a"));
    const auto enlace = enlazarArchivo(u"Quorvela/a.txt"_s, u"Quorvela/notas/e.txt"_s);
    if (!*enlace)
        QSKIP("this account may make no links");
    const QString ruta = u"C:\\Quorvela\\notas\\E.txt"_s;
    QVERIFY(m_disco->agregar(ruta, "b"));
    QCOMPARE(m_disco->largo(ruta), 2);
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("ab"));
    QCOMPARE(m_disco->borrar(ruta), !enlace->esDeFuera());
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("ab"));
    const auto entrante = m_disco->recibir(ruta);
    QVERIFY(entrante);
    QCOMPARE(entrante->dispositivo().write("foto"), 4);
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->leer(u"Quorvela/notas/E.txt"_s), QByteArray("foto"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("ab"));
}

QTEST_GUILESS_MAIN(tst_DriveCWindowsEnlaces)
#include "tst_DriveCWindowsEnlaces.moc"
