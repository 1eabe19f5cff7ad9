// Nothing outside of the archive is touched, whatever the path.
#include "CarpetaPersonal.h"
#include "platform/DriveC.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_DriveCFuera : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nombreRefusado_todoFalla_data();
    void nombreRefusado_todoFalla();
    void fueraDeLaRaiz_todoFalla_data();
    void fueraDeLaRaiz_todoFalla();
    void enlaceHaciaFuera_todoFalla_data();
    void enlaceHaciaFuera_todoFalla();
    void enlaceHaciaDentro_sirve();

private:
    std::unique_ptr<CarpetaPersonal> casa;
    std::unique_ptr<DriveC> disco;
};

void tst_DriveCFuera::init()
{
    casa = std::make_unique<CarpetaPersonal>();
    QVERIFY(casa->hacerCarpeta(u"Quorvela"_s));
    disco = std::make_unique<DriveC>(casa->ruta());
}

void tst_DriveCFuera::cleanup()
{
    disco.reset();
    casa.reset();
}

void tst_DriveCFuera::nombreRefusado_todoFalla_data()
{
    QTest::addColumn<QString>("nombre");
    for (const auto &nombre : {u"a<b"_s, u"a>b"_s, u"a:b"_s, u"a\"b"_s, u"a|b"_s, u"a?b"_s,
                               u"a*b"_s, u"a\tb"_s, u"a\r\nb"_s, u"CON"_s, u"prn.txt"_s, u"AUX"_s,
                               u"nul"_s, u"COM1.html"_s, u"lpt9"_s, u"NUL. . "_s, u"..."_s, u" "_s})
        QTest::newRow(nombre.toUtf8().toPercentEncoding(" <>:\"|?*")) << nombre;
}

void tst_DriveCFuera::nombreRefusado_todoFalla()
{
    QFETCH(QString, nombre);
    const QString ruta = u"C:\\Quorvela\\"_s + nombre;
    QVERIFY(!disco->crearCarpeta(ruta));
    QVERIFY(!disco->agregar(ruta, "x"));
    QVERIFY(!disco->recibir(ruta));
    QVERIFY(!disco->borrar(ruta));
    QVERIFY(!disco->largo(ruta));
    QVERIFY(!disco->agregar(ruta + u"\\dentro.txt"_s, "x"));
    QVERIFY(!disco->carpetas(ruta));
    QVERIFY(casa->entradas(u"Quorvela"_s).isEmpty());
}

void tst_DriveCFuera::fueraDeLaRaiz_todoFalla_data()
{
    QTest::addColumn<QString>("carpeta");
    QTest::newRow("la personal") << u"C:\\"_s;
    QTest::newRow("otra") << u"C:\\otra\\"_s;
    QTest::newRow("nombre que empieza igual") << u"C:\\Quorvela2\\"_s;
    QTest::newRow("sube") << u"C:\\Quorvela\\..\\otra\\"_s;
    QTest::newRow("sube mas") << u"C:\\Quorvela\\x\\..\\..\\otra\\"_s;
    QTest::newRow("sube con barra inclinada") << u"C:/Quorvela/../otra/"_s;
    QTest::newRow("sube de la raiz de la unidad") << u"C:\\..\\otra\\"_s;
    QTest::newRow("otra unidad") << u"D:\\Quorvela\\"_s;
    QTest::newRow("sin unidad") << u"\\Quorvela\\"_s;
    QTest::newRow("relativa") << u"Quorvela\\"_s;
    QTest::newRow("relativa a la unidad") << u"C:Quorvela\\"_s;
    QTest::newRow("de red") << u"\\\\C:\\Quorvela\\"_s;
}

void tst_DriveCFuera::fueraDeLaRaiz_todoFalla()
{
    QFETCH(QString, carpeta);
    QVERIFY(casa->hacerCarpeta(u"otra"_s));
    QVERIFY(casa->hacerCarpeta(u"Quorvela2"_s));
    for (const auto &archivo : {u"a.txt"_s, u"otra/a.txt"_s, u"Quorvela2/a.txt"_s})
        QVERIFY(casa->escribir(archivo, "ajeno"));
    QVERIFY(!disco->crearCarpeta(carpeta + u"nueva"_s));
    QVERIFY(!disco->agregar(carpeta + u"a.txt"_s, "x"));
    QVERIFY(!disco->agregar(carpeta + u"nuevo.txt"_s, "x"));
    QVERIFY(!disco->recibir(carpeta + u"a.txt"_s));
    QVERIFY(!disco->recibir(carpeta + u"nuevo.txt"_s));
    QVERIFY(!disco->borrar(carpeta + u"a.txt"_s));
    QCOMPARE(casa->entradas(), (QStringList{u"Quorvela"_s, u"Quorvela2"_s, u"a.txt"_s, u"otra"_s}));
    for (const auto &hermana : {u"otra"_s, u"Quorvela2"_s})
        QCOMPARE(casa->entradas(hermana), QStringList{u"a.txt"_s});
    for (const auto &archivo : {u"a.txt"_s, u"otra/a.txt"_s, u"Quorvela2/a.txt"_s})
        QCOMPARE(casa->leer(archivo), QByteArray("ajeno"));
}

void tst_DriveCFuera::enlaceHaciaFuera_todoFalla_data()
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

void tst_DriveCFuera::enlaceHaciaFuera_todoFalla()
{
    QFETCH(QString, destino);
    QFETCH(QString, ruta);
    QVERIFY(casa->hacerCarpeta(u"otra"_s));
    QVERIFY(casa->hacerCarpeta(u"Quorvela2"_s));
    for (const auto &archivo : {u"a.txt"_s, u"otra/a.txt"_s, u"Quorvela2/a.txt"_s})
        QVERIFY(casa->escribir(archivo, "ajeno"));
    QVERIFY(casa->enlazar(destino, u"Quorvela/e"_s));
    QVERIFY(!disco->crearCarpeta(ruta));
    QVERIFY(!disco->agregar(ruta, "x"));
    QVERIFY(!disco->recibir(ruta));
    QVERIFY(!disco->borrar(ruta));
    QVERIFY(!disco->largo(ruta));
    QCOMPARE(casa->enlace(u"Quorvela/e"_s), destino.toUtf8());
    for (const auto &hermana : {u"otra"_s, u"Quorvela2"_s})
        QCOMPARE(casa->entradas(hermana), QStringList{u"a.txt"_s});
    for (const auto &archivo : {u"a.txt"_s, u"otra/a.txt"_s, u"Quorvela2/a.txt"_s})
        QCOMPARE(casa->leer(archivo), QByteArray("ajeno"));
}

void tst_DriveCFuera::enlaceHaciaDentro_sirve()
{
    QVERIFY(casa->hacerCarpeta(u"Quorvela/notas"_s));
    QVERIFY(casa->enlazar(u"notas"_s, u"Quorvela/corto"_s));
    QVERIFY(disco->agregar(u"C:\\Quorvela\\corto\\a.txt"_s, "a"));
    QCOMPARE(casa->leer(u"Quorvela/notas/a.txt"_s), QByteArray("a"));
    QVERIFY(disco->borrar(u"C:\\Quorvela\\corto\\a.txt"_s));
    QVERIFY(casa->entradas(u"Quorvela/notas"_s).isEmpty());
}

QTEST_GUILESS_MAIN(tst_DriveCFuera)
#include "tst_DriveCFuera.moc"
