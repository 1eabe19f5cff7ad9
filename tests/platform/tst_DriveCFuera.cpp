// SPDX-License-Identifier: MIT
// Nothing outside of the archive is touched, whatever the path.
#include "UnidadDePrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DriveCFuera : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void nombreRefusado_todoFalla_data();
    void nombreRefusado_todoFalla();
    void fueraDeLaRaiz_todoFalla_data();
    void fueraDeLaRaiz_todoFalla();
    void separadorAlFinal_noEsArchivo_data();
    void separadorAlFinal_noEsArchivo();
};

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
    QVERIFY(!m_disco->crearCarpeta(ruta));
    QVERIFY(!m_disco->agregar(ruta, "x"));
    QVERIFY(!m_disco->recibir(ruta));
    QVERIFY(!m_disco->borrar(ruta));
    QVERIFY(!m_disco->largo(ruta));
    QVERIFY(!m_disco->agregar(ruta + u"\\dentro.txt"_s, "x"));
    QVERIFY(!m_disco->carpetas(ruta));
    QVERIFY(m_casa->entradas(u"Quorvela"_s).isEmpty());
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
    QVERIFY(m_casa->hacerCarpeta(u"otra"_s));
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela2"_s));
    for (const auto &archivo : {u"a.txt"_s, u"otra/a.txt"_s, u"Quorvela2/a.txt"_s})
        QVERIFY(m_casa->escribir(archivo, "ajeno"));
    QVERIFY(!m_disco->crearCarpeta(carpeta + u"nueva"_s));
    QVERIFY(!m_disco->agregar(carpeta + u"a.txt"_s, "x"));
    QVERIFY(!m_disco->agregar(carpeta + u"nuevo.txt"_s, "x"));
    QVERIFY(!m_disco->recibir(carpeta + u"a.txt"_s));
    QVERIFY(!m_disco->recibir(carpeta + u"nuevo.txt"_s));
    QVERIFY(!m_disco->borrar(carpeta + u"a.txt"_s));
    QCOMPARE(m_casa->entradas(),
             (QStringList{u"Quorvela"_s, u"Quorvela2"_s, u"a.txt"_s, u"otra"_s}));
    for (const auto &hermana : {u"otra"_s, u"Quorvela2"_s})
        QCOMPARE(m_casa->entradas(hermana), QStringList{u"a.txt"_s});
    for (const auto &archivo : {u"a.txt"_s, u"otra/a.txt"_s, u"Quorvela2/a.txt"_s})
        QCOMPARE(m_casa->leer(archivo), QByteArray("ajeno"));
}

void tst_DriveCFuera::separadorAlFinal_noEsArchivo_data()
{
    QTest::addColumn<QString>("cola");
    for (const auto &cola : {u"\\"_s, u"/"_s, u"\\\\"_s, u"\\/"_s})
        QTest::newRow(qPrintable(cola)) << cola;
}

// A subject "MAT/" is no file "MAT", and one without a name is not the folder of the labels.
void tst_DriveCFuera::separadorAlFinal_noEsArchivo()
{
    QFETCH(QString, cola);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/labels"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/labels/MAT"_s, "foto"));
    for (const auto &nombre : {u"MAT"_s, u"nueva"_s, u""_s}) {
        const QString ruta = u"C:\\Quorvela\\labels\\"_s + nombre + cola;
        QVERIFY(!m_disco->borrar(ruta));
        QVERIFY(!m_disco->largo(ruta));
        QVERIFY(!m_disco->agregar(ruta, "x"));
        QVERIFY(!m_disco->recibir(ruta));
    }
    QCOMPARE(m_casa->entradas(u"Quorvela/labels"_s), QStringList{u"MAT"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/labels/MAT"_s), QByteArray("foto"));
    // The paths of folders end so.
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\labels\\carpeta"_s + cola));
    QVERIFY(QFileInfo(m_casa->ruta(u"Quorvela/labels/carpeta"_s)).isDir());
    QCOMPARE(m_disco->carpetas(u"C:\\Quorvela\\labels\\"_s),
             QStringList{u"C:\\Quorvela\\labels\\carpeta"_s});
}

QTEST_GUILESS_MAIN(tst_DriveCFuera)
#include "tst_DriveCFuera.moc"
