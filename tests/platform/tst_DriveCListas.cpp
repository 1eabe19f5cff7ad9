#include "CarpetaPersonal.h"
#include "platform/DriveC.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_DriveCListas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void lista_porNombreSinMirarLaLetra();
    void lista_empiezaComoSePidio_data();
    void lista_empiezaComoSePidio();
    void lista_pasaPorAltoOtrasEscrituras();
    void lista_fueraDeLaUnidad_rutasNativas();
    void lista_nombreConPunto_soloEnLaUnidad();
    void lista_ausente_nada_data();
    void lista_ausente_nada();

private:
    std::unique_ptr<CarpetaPersonal> casa;
    std::unique_ptr<DriveC> disco;
};

void tst_DriveCListas::init()
{
    casa = std::make_unique<CarpetaPersonal>();
    QVERIFY(casa->hacerCarpeta(u"Quorvela"_s));
    disco = std::make_unique<DriveC>(casa->ruta());
}

void tst_DriveCListas::cleanup()
{
    disco.reset();
    casa.reset();
}

void tst_DriveCListas::lista_porNombreSinMirarLaLetra()
{
    for (const auto &nombre : {u"9-2010"_s, u"10-2010"_s, u"beta"_s, u"Alfa"_s, u"ALFIL"_s,
                               u"Ñandú"_s, u"ñame"_s, u"zeta"_s})
        QVERIFY(casa->hacerCarpeta(u"Quorvela/"_s + nombre));
    QVERIFY(casa->escribir(u"Quorvela/archivo.txt"_s, "no es carpeta"));
    const QStringList esperadas = {u"C:\\Quorvela\\10-2010"_s, u"C:\\Quorvela\\9-2010"_s,
                                   u"C:\\Quorvela\\Alfa"_s,    u"C:\\Quorvela\\ALFIL"_s,
                                   u"C:\\Quorvela\\beta"_s,    u"C:\\Quorvela\\zeta"_s,
                                   u"C:\\Quorvela\\ñame"_s,    u"C:\\Quorvela\\Ñandú"_s};
    QCOMPARE(disco->carpetas(u"C:\\Quorvela"_s), esperadas);
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
    QVERIFY(casa->hacerCarpeta(u"Quorvela/Uno-2010"_s));
    QCOMPARE(disco->carpetas(ruta), lista);
}

void tst_DriveCListas::lista_pasaPorAltoOtrasEscrituras()
{
    QVERIFY(disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!disco->crearCarpeta(u"C:\\Quorvela\\Notas"_s));
    QVERIFY(!disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    // Another name for a folder is an entry of its own.
    QVERIFY(casa->enlazar(u"notas"_s, u"Quorvela/viejas"_s));
    QCOMPARE(disco->carpetas(u"C:\\Quorvela"_s),
             (QStringList{u"C:\\Quorvela\\notas"_s, u"C:\\Quorvela\\viejas"_s}));
    QCOMPARE(disco->carpetas(casa->ruta(u"Quorvela"_s)),
             (QStringList{casa->ruta(u"Quorvela/notas"_s), casa->ruta(u"Quorvela/viejas"_s)}));
}

void tst_DriveCListas::lista_fueraDeLaUnidad_rutasNativas()
{
    const CarpetaPersonal fuera;
    for (const auto &nombre : {u"b"_s, u"A"_s, u"c d"_s})
        QVERIFY(fuera.hacerCarpeta(nombre));
    QVERIFY(fuera.escribir(u"archivo"_s, "x"));
    const QStringList esperadas = {fuera.ruta(u"A"_s), fuera.ruta(u"b"_s), fuera.ruta(u"c d"_s)};
    QCOMPARE(disco->carpetas(fuera.ruta()), esperadas);
    QCOMPARE(disco->carpetas(fuera.ruta() + u'/'), esperadas);
}

// A dot at the beginning hides nothing on Windows.
void tst_DriveCListas::lista_nombreConPunto_soloEnLaUnidad()
{
    QVERIFY(casa->hacerCarpeta(u"Quorvela/.1-2010"_s));
    QCOMPARE(disco->carpetas(u"C:\\Quorvela"_s), QStringList{u"C:\\Quorvela\\.1-2010"_s});
    QCOMPARE(disco->carpetas(casa->ruta(u"Quorvela"_s)), QStringList());
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
    QVERIFY(casa->escribir(u"Quorvela/a.txt"_s, "x"));
    QVERIFY(!disco->carpetas(ruta));
}

QTEST_GUILESS_MAIN(tst_DriveCListas)
#include "tst_DriveCListas.moc"
