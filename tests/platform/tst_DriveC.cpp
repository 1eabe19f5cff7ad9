// SPDX-License-Identifier: MIT
#include "UnidadDePrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DriveC : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void carpetaNueva_tieneLaLetraPedida();
    void carpetaExistente_falla();
    void carpetaSinMadre_falla();
    void carpetaDondeHayArchivo_falla();
    void archivoDondeHayCarpeta_falla();
    void raizQueEsArchivo_todoFalla();
    void raizAusente_nadaSeHace();
    void separadoresYPuntos_mismaEntrada_data();
    void separadoresYPuntos_mismaEntrada();
    void borrar_quitaSoloElArchivo();
    void largo_data();
    void largo();
    void muchosArchivos_todosEnSuSitio();
    void rutaNativa_data();
    void rutaNativa();
};

void tst_DriveC::carpetaNueva_tieneLaLetraPedida()
{
    QVERIFY(m_disco->crearCarpeta(u"c:\\quorvela\\123-2010\\"_s));
    QVERIFY(m_disco->crearCarpeta(u"c:\\Quorvela\\123-2010\\Archivos"_s));
    QCOMPARE(m_casa->entradas(), QStringList{u"Quorvela"_s});
    QCOMPARE(m_casa->entradas(u"Quorvela/123-2010"_s), QStringList{u"Archivos"_s});
    QVERIFY(QFileInfo(m_casa->ruta(u"Quorvela/123-2010/Archivos"_s)).isDir());
}

void tst_DriveC::carpetaExistente_falla()
{
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"notas"_s});
}

void tst_DriveC::carpetaSinMadre_falla()
{
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\123-2010\\archivos"_s));
    QVERIFY(m_casa->entradas(u"Quorvela"_s).isEmpty());
}

void tst_DriveC::carpetaDondeHayArchivo_falla()
{
    QVERIFY(m_casa->escribir(u"Quorvela/notas"_s, "x"));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\notas\\dentro"_s));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\notas\\dentro"_s, "y"));
    QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\notas\\dentro"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"notas"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/notas"_s), QByteArray("x"));
}

void tst_DriveC::archivoDondeHayCarpeta_falla()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\index.html"_s));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\index.html"_s, "x"));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\INDEX.html"_s, "x"));
    QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\index.html"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\index.html"_s));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\index.html"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"index.html"_s});
    QVERIFY(QFileInfo(m_casa->ruta(u"Quorvela/index.html"_s)).isDir());
}

void tst_DriveC::raizQueEsArchivo_todoFalla()
{
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    QVERIFY(m_casa->escribir(u"Quorvela"_s, "no es carpeta"));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\quorvela"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\123-2010"_s));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela"_s, "x"));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\x"_s, "x"));
    QVERIFY(!m_disco->recibir(u"C:\\Quorvela"_s));
    QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\x"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela"_s));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\x"_s));
    QVERIFY(!m_disco->carpetas(u"C:\\Quorvela"_s));
    QCOMPARE(m_casa->entradas(), QStringList{u"Quorvela"_s});
    QCOMPARE(m_casa->leer(u"Quorvela"_s), QByteArray("no es carpeta"));
}

void tst_DriveC::raizAusente_nadaSeHace()
{
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\123-2010"_s));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "a"));
    QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(m_casa->entradas().isEmpty());
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QCOMPARE(m_casa->entradas(), QStringList{u"Quorvela"_s});
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "a"));
}

void tst_DriveC::separadoresYPuntos_mismaEntrada_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::newRow("barras inclinadas") << u"c:/Quorvela/notas/a.txt"_s;
    QTest::newRow("mezcladas") << u"C:\\Quorvela/notas\\a.txt"_s;
    QTest::newRow("repetidas") << u"C:\\\\Quorvela//notas\\/\\a.txt"_s;
    QTest::newRow("punto") << u"C:\\Quorvela\\.\\notas\\.\\a.txt"_s;
    QTest::newRow("sube y vuelve") << u"C:\\Quorvela\\..\\Quorvela\\notas\\..\\notas\\a.txt"_s;
    QTest::newRow("puntos y blancos al final") << u"C:\\Quorvela.\\notas \\a.txt. ."_s;
}

void tst_DriveC::separadoresYPuntos_mismaEntrada()
{
    QFETCH(QString, ruta);
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(m_disco->agregar(ruta, "a"));
    QCOMPARE(m_disco->largo(ruta), 1);
    QCOMPARE(m_casa->leer(u"Quorvela/notas/a.txt"_s), QByteArray("a"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"notas"_s});
    QCOMPARE(m_casa->entradas(u"Quorvela/notas"_s), QStringList{u"a.txt"_s});
}

void tst_DriveC::borrar_quitaSoloElArchivo()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "a"));
    QVERIFY(m_casa->escribir(u"Quorvela/b.txt"_s, "b"));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"b.txt"_s});
}

void tst_DriveC::largo_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const int largo : {0, 1, 8, 9, 70000})
        QTest::addRow("%d", largo) << QByteArray(largo, 'x');
}

void tst_DriveC::largo()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\a.jpg"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/a.jpg"_s, bytes));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\a.jpg"_s), bytes.size());
}

// As many as a large school has photos, twice, the second time in another letter.
void tst_DriveC::muchosArchivos_todosEnSuSitio()
{
    constexpr int cuantos = 2000;
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\fotos"_s));
    for (int i = 0; i < cuantos; ++i)
        QVERIFY(m_disco->agregar(u"C:\\Quorvela\\fotos\\%1-Alumno.jpg"_s.arg(i), "a"));
    for (int i = 0; i < cuantos; ++i) {
        const QString ruta = u"C:\\Quorvela\\FOTOS\\%1-alumno.JPG"_s.arg(i);
        QCOMPARE(m_disco->largo(ruta), 1);
        QVERIFY(m_disco->borrar(ruta));
        QVERIFY(m_disco->agregar(ruta, "bb"));
    }
    const QStringList entradas = m_casa->entradas(u"Quorvela/fotos"_s);
    QCOMPARE(entradas.size(), cuantos);
    QVERIFY(entradas.contains(u"1999-alumno.JPG"_s));
    QVERIFY(!entradas.contains(u"1999-Alumno.jpg"_s));
    QCOMPARE(m_casa->leer(u"Quorvela/fotos/0-alumno.JPG"_s), QByteArray("bb"));
}

void tst_DriveC::rutaNativa_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::addColumn<QString>("dentro"); // in the home folder; empty: the path as it is
    QTest::newRow("existente") << u"C:\\Quorvela\\123-2010\\index.html"_s
                               << u"Quorvela/123-2010/Index.html"_s;
    QTest::newRow("que falta") << u"c:\\quorvela\\123-2010\\Nada.html"_s
                               << u"Quorvela/123-2010/Nada.html"_s;
    QTest::newRow("carpeta que falta")
        << u"c:\\quorvela\\9\\Nada.html"_s << u"Quorvela/9/Nada.html"_s;
    QTest::newRow("barras mezcladas")
        << u"C:\\Quorvela\\123-2010/index.html"_s << u"Quorvela/123-2010/Index.html"_s;
    QTest::newRow("nativa") << u"/index.html"_s << QString();
    QTest::newRow("direccion") << u"https://x.example/a"_s << QString();
}

void tst_DriveC::rutaNativa()
{
    QFETCH(QString, ruta);
    QFETCH(QString, dentro);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/123-2010"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/123-2010/Index.html"_s, "x"));
    QCOMPARE(m_disco->rutaNativa(ruta), dentro.isEmpty() ? ruta : m_casa->nativa(dentro));
}

QTEST_GUILESS_MAIN(tst_DriveC)
#include "tst_DriveC.moc"
