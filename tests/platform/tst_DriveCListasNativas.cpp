// SPDX-License-Identifier: MIT
// Listings with links and with names that a disk of Windows has not, and those of native paths.
#include "UnidadDePrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DriveCListasNativas : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void lista_pasaPorAltoOtrasEscrituras();
    void lista_fueraDeLaUnidad_rutasNativas();
    void lista_nombreConPunto_soloEnLaUnidad();
    void deLaLista_esaMismaCarpeta_data();
    void deLaLista_esaMismaCarpeta();
    void deLaLista_enlaceODosEscrituras();
    void noEstaEnLaLista_comoSiempre_data();
    void noEstaEnLaLista_comoSiempre();
    void nombreRefusado_seListaPeroNoSeEscribe();
};

void tst_DriveCListasNativas::lista_pasaPorAltoOtrasEscrituras()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\Notas"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    // Another name for a folder is an entry of its own.
    QVERIFY(m_casa->enlazar(u"notas"_s, u"Quorvela/viejas"_s));
    QCOMPARE(m_disco->carpetas(u"C:\\Quorvela"_s),
             (QStringList{u"C:\\Quorvela\\notas"_s, u"C:\\Quorvela\\viejas"_s}));
    QCOMPARE(m_disco->carpetas(m_casa->ruta(u"Quorvela"_s)),
             (QStringList{m_casa->ruta(u"Quorvela/notas"_s), m_casa->ruta(u"Quorvela/viejas"_s)}));
}

void tst_DriveCListasNativas::lista_fueraDeLaUnidad_rutasNativas()
{
    const CarpetaPersonal fuera;
    for (const auto &nombre : {u"b"_s, u"A"_s, u"c d"_s})
        QVERIFY(fuera.hacerCarpeta(nombre));
    QVERIFY(fuera.escribir(u"archivo"_s, "x"));
    const QStringList esperadas = {fuera.ruta(u"A"_s), fuera.ruta(u"b"_s), fuera.ruta(u"c d"_s)};
    QCOMPARE(m_disco->carpetas(fuera.ruta()), esperadas);
    QCOMPARE(m_disco->carpetas(fuera.ruta() + u'/'), esperadas);
}

// A dot at the beginning hides nothing on Windows.
void tst_DriveCListasNativas::lista_nombreConPunto_soloEnLaUnidad()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/.1-2010"_s));
    QCOMPARE(m_disco->carpetas(u"C:\\Quorvela"_s), QStringList{u"C:\\Quorvela\\.1-2010"_s});
    QCOMPARE(m_disco->carpetas(m_casa->ruta(u"Quorvela"_s)), QStringList());
}

void tst_DriveCListasNativas::deLaLista_esaMismaCarpeta_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<QString>("vecina"); // what the name would be read as
    QTest::newRow("dispositivo") << u"con"_s << u"CON"_s;
    QTest::newRow("prohibido") << u"a:b"_s << u"a"_s;
    QTest::newRow("punto al final") << u"punto."_s << u"punto"_s;
    QTest::newRow("blanco al final") << u"blanco "_s << u"blanco"_s;
    QTest::newRow("solo blancos") << u"  "_s << u"blanco"_s;
    QTest::newRow("tres puntos") << u"..."_s << u"punto"_s;
    QTest::newRow("barra") << u"a\\b"_s << u"a/b"_s;
    QTest::newRow("barra al principio") << u"\\a"_s << u"a"_s;
    QTest::newRow("barra al final") << u"a\\"_s << u"a"_s;
    QTest::newRow("renglones") << u"a\nb"_s << u"a"_s;
    QTest::newRow("comillas") << u"\"a\" <b>"_s << u"a"_s;
}

void tst_DriveCListasNativas::deLaLista_esaMismaCarpeta()
{
    QFETCH(QString, nombre);
    QFETCH(QString, vecina);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/"_s + vecina));
    QVERIFY(m_casa->escribir(u"Quorvela/"_s + vecina + u"/index.html"_s, "vecina"));
    QVERIFY(QDir(m_casa->ruta(u"Quorvela"_s)).mkdir(nombre));
    QVERIFY(m_casa->escribir(u"Quorvela/"_s + nombre + u"/Index.HTML"_s, "elegida"));
    const QString renglon = u"C:\\Quorvela\\"_s + nombre;
    const auto lista = m_disco->carpetas(u"C:\\Quorvela"_s);
    QVERIFY(lista && lista->contains(renglon));
    QCOMPARE(m_disco->rutaNativa(renglon + u"/index.html"_s),
             m_casa->ruta(u"Quorvela/"_s + nombre + u"/Index.HTML"_s));
    QCOMPARE(m_disco->rutaNativa(renglon + u"/falta.html"_s),
             m_casa->ruta(u"Quorvela/"_s + nombre + u"/falta.html"_s));
}

void tst_DriveCListasNativas::deLaLista_enlaceODosEscrituras()
{
    QVERIFY(m_casa->hacerCarpeta(u"fuera"_s));
    QVERIFY(m_casa->enlazar(u"../fuera"_s, u"Quorvela/nul"_s));
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/AUX"_s));
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/aux"_s));
    for (const auto &nombre : {u"nul"_s, u"AUX"_s, u"aux"_s})
        QCOMPARE(m_disco->rutaNativa(u"C:\\Quorvela\\"_s + nombre + u"/index.html"_s),
                 m_casa->ruta(u"Quorvela/"_s + nombre + u"/index.html"_s));
}

void tst_DriveCListasNativas::noEstaEnLaLista_comoSiempre_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::addColumn<QString>("dentro"); // of the home folder; empty: the path as it is
    QTest::newRow("no existe") << u"C:\\Quorvela\\con/index.html"_s << QString();
    QTest::newRow("es archivo") << u"C:\\Quorvela\\nul/index.html"_s << QString();
    QTest::newRow("en otra escritura")
        << u"C:\\Quorvela\\notas./index.html"_s << u"Quorvela/Notas/index.html"_s;
    QTest::newRow("sube") << u"C:\\Quorvela\\../index.html"_s << u"index.html"_s;
    QTest::newRow("fuera de la raiz") << u"C:\\otra\\aux/index.html"_s << QString();
}

void tst_DriveCListasNativas::noEstaEnLaLista_comoSiempre()
{
    QFETCH(QString, ruta);
    QFETCH(QString, dentro);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/Notas"_s));
    QVERIFY(m_casa->hacerCarpeta(u"otra/aux"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/nul"_s, "no es carpeta"));
    QCOMPARE(m_disco->rutaNativa(ruta), dentro.isEmpty() ? ruta : m_casa->ruta(dentro));
}

void tst_DriveCListasNativas::nombreRefusado_seListaPeroNoSeEscribe()
{
    for (const auto &nombre : {u"con"_s, u"punto."_s, u"a:b"_s}) {
        QVERIFY(m_casa->hacerCarpeta(u"Quorvela/"_s + nombre));
        const QString archivo = u"C:\\Quorvela\\"_s + nombre + u"/index.html"_s;
        QVERIFY(!m_disco->agregar(archivo, "x"));
        QVERIFY(!m_disco->recibir(archivo));
        QVERIFY(!m_disco->crearCarpeta(archivo));
        QVERIFY(m_casa->entradas(u"Quorvela/"_s + nombre).isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_DriveCListasNativas)
#include "tst_DriveCListasNativas.moc"
