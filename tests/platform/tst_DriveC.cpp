// SPDX-License-Identifier: MIT
#include "CarpetaPersonal.h"
#include "platform/DriveC.h"

#include <QProcess>
#include <QTest>

#include <memory>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_DriveC : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void carpetaNueva_tieneLaLetraPedida();
    void carpetaExistente_falla();
    void carpetaSinMadre_falla();
    void carpetaDondeHayArchivo_falla();
    void archivoDondeHayCarpeta_falla();
    void raizQueEsArchivo_todoFalla();
    void raizEnOtraEscritura_sirve();
    void raizAusente_nadaSeHace();
    void raizQueEsEnlace_sirve();

    void nombre_sinMirarLaLetra_data();
    void nombre_sinMirarLaLetra();
    void escrituraExistente_gana();
    void nombresCasiIguales_sonDistintos_data();
    void nombresCasiIguales_sonDistintos();
    void nombreAcentuado_guardadoEnUtf8();
    void separadoresYPuntos_mismaEntrada_data();
    void separadoresYPuntos_mismaEntrada();

    void carpetaEnOtraEscritura_dejaEnlace();
    void enlaceDeEscritura_noSeRepite();
    void enlaceDeEscritura_sirveDeCarpeta();
    void raizEnOtraEscritura_sinEnlace();
    void archivoEnOtraEscritura_sinEnlace();

    void borrar_quitaSoloElArchivo();
    void borrar_carpetaOEnlaceDeEscritura_falla();
    void largo_data();
    void largo();

    void otroProcesoCrea_seVe();
    void otroProcesoCrea_seVeTrasUnCambioPropio();
    void otroProcesoBorra_seVe();
    void otroProcesoRenombra_seVe();
    void muchosArchivos_todosEnSuSitio();

    void rutaNativa_data();
    void rutaNativa();

private:
    // File times move in steps; returns when a change made now gets another time than one made
    // before the call.
    void esperarOtroMomento();
    // A change of the archive by a program that is not this one.
    bool otroProceso(const QString &orden, const QStringList &argumentos) const;

    std::unique_ptr<CarpetaPersonal> m_casa;
    std::unique_ptr<DriveC> m_disco;
};

void tst_DriveC::init()
{
    m_casa = std::make_unique<CarpetaPersonal>();
    m_disco = std::make_unique<DriveC>(m_casa->ruta());
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QCOMPARE(m_casa->entradas(), QStringList{u"Quorvela"_s});
}

void tst_DriveC::cleanup()
{
    m_disco.reset();
    m_casa.reset();
}

void tst_DriveC::esperarOtroMomento()
{
    const auto momento = [this] {
        m_casa->escribir(u".momento"_s, {});
        struct stat datos = {};
        ::stat(QFile::encodeName(m_casa->ruta(u".momento"_s)).constData(), &datos);
        QFile::remove(m_casa->ruta(u".momento"_s));
        return std::pair(datos.st_mtim.tv_sec, datos.st_mtim.tv_nsec);
    };
    const auto antes = momento();
    QTRY_VERIFY(momento() != antes);
}

bool tst_DriveC::otroProceso(const QString &orden, const QStringList &argumentos) const
{
    return QProcess::execute(orden, argumentos) == 0;
}

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

void tst_DriveC::raizEnOtraEscritura_sirve()
{
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    QVERIFY(m_casa->hacerCarpeta(u"QUORVELA"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(m_disco->agregar(u"c:\\Quorvela\\a.txt"_s, "a"));
    QCOMPARE(m_casa->entradas(), QStringList{u"QUORVELA"_s});
    QCOMPARE(m_casa->leer(u"QUORVELA/a.txt"_s), QByteArray("a"));
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
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "a"));
}

// A user may keep the archive on another disk; the link's folder then is the archive root.
void tst_DriveC::raizQueEsEnlace_sirve()
{
    const CarpetaPersonal disquera;
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    QVERIFY(m_casa->enlazar(disquera.ruta(), u"Quorvela"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\123-2010"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\123-2010\\a.txt"_s, "a"));
    QCOMPARE(disquera.leer(u"123-2010/a.txt"_s), QByteArray("a"));
}

void tst_DriveC::nombre_sinMirarLaLetra_data()
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

void tst_DriveC::nombre_sinMirarLaLetra()
{
    QFETCH(QString, enDisco);
    QFETCH(QString, pedido);
    QVERIFY(m_casa->hacerCarpeta(enDisco.section(u'/', 0, 1)));
    QVERIFY(m_casa->escribir(enDisco, "uno"));

    QCOMPARE(m_disco->largo(pedido), 3);
    QCOMPARE(m_disco->rutaNativa(pedido), m_casa->ruta(enDisco));
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

void tst_DriveC::escrituraExistente_gana()
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
void tst_DriveC::nombresCasiIguales_sonDistintos_data()
{
    QTest::addColumn<QString>("uno");
    QTest::addColumn<QString>("otro");
    QTest::newRow("acento") << u"Peña.html"_s << u"Pena.html"_s;
    QTest::newRow("eszett") << u"Strauß.html"_s << u"STRAUSS.html"_s;
    QTest::newRow("ligadura") << u"ﬁnal.html"_s << u"FINAL.html"_s;
    QTest::newRow("blanco") << u"a b.html"_s << u"ab.html"_s;
}

void tst_DriveC::nombresCasiIguales_sonDistintos()
{
    QFETCH(QString, uno);
    QFETCH(QString, otro);
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\"_s + uno, "1"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\"_s + otro, "2"));
    QCOMPARE(m_casa->leer(u"Quorvela/"_s + uno), QByteArray("1"));
    QCOMPARE(m_casa->leer(u"Quorvela/"_s + otro), QByteArray("2"));
}

void tst_DriveC::nombreAcentuado_guardadoEnUtf8()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\Español"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\Español\\Física.png"_s, "x"));
    const QByteArray nativa =
        m_casa->ruta().toUtf8() + "/Quorvela/Espa\xC3\xB1ol/F\xC3\xADsica.png";
    struct stat datos = {};
    QCOMPARE(::stat(nativa.constData(), &datos), 0);
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

void tst_DriveC::carpetaEnOtraEscritura_dejaEnlace()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\infoAlumno"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\InfoAlumno\\"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"InfoAlumno"_s, u"infoAlumno"_s}));
    QCOMPARE(m_casa->enlace(u"Quorvela/InfoAlumno"_s), QByteArray("infoAlumno"));
    QCOMPARE(m_casa->enlace(u"Quorvela/infoAlumno"_s), QByteArray());
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\INFOALUMNO\\1.html"_s, "x"));
    QCOMPARE(m_casa->leer(u"Quorvela/InfoAlumno/1.html"_s), QByteArray("x"));
    QCOMPARE(m_casa->leer(u"Quorvela/infoAlumno/1.html"_s), QByteArray("x"));
}

void tst_DriveC::enlaceDeEscritura_noSeRepite()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    for (int vez = 0; vez < 2; ++vez) {
        QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\Notas"_s));
        QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
        QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    }
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"NOTAS"_s, u"Notas"_s, u"notas"_s}));
    QCOMPARE(m_casa->enlace(u"Quorvela/NOTAS"_s), QByteArray("notas"));
    QCOMPARE(m_casa->enlace(u"Quorvela/Notas"_s), QByteArray("notas"));
}

void tst_DriveC::enlaceDeEscritura_sirveDeCarpeta()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS\\p1"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\NOTAS\\p1\\a.txt"_s, "a"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\notas\\P1\\A.TXT"_s), 1);
    QCOMPARE(m_casa->leer(u"Quorvela/notas/p1/a.txt"_s), QByteArray("a"));
}

// The link would stand beside the archive, in the home folder.
void tst_DriveC::raizEnOtraEscritura_sinEnlace()
{
    QVERIFY(!m_disco->crearCarpeta(u"c:\\quorvela"_s));
    QCOMPARE(m_casa->entradas(), QStringList{u"Quorvela"_s});
}

void tst_DriveC::archivoEnOtraEscritura_sinEnlace()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "1"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\A.txt"_s, "2"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.txt"_s});
}

void tst_DriveC::borrar_quitaSoloElArchivo()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "a"));
    QVERIFY(m_casa->escribir(u"Quorvela/b.txt"_s, "b"));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"b.txt"_s});
}

void tst_DriveC::borrar_carpetaOEnlaceDeEscritura_falla()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\NOTAS"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"NOTAS"_s, u"notas"_s}));
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

void tst_DriveC::otroProcesoCrea_seVe()
{
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\propio.txt"_s, "p"));
    esperarOtroMomento();
    QVERIFY(otroProceso(
        u"/bin/sh"_s, {u"-c"_s, u"printf hola > \"$0/Foto.JPG\""_s, m_casa->ruta(u"Quorvela"_s)}));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s), 4);
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\FOTO.jpg"_s, "!"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"Foto.JPG"_s, u"propio.txt"_s}));
}

// A change of the program's own, made without looking any name up, must not hide the other's.
void tst_DriveC::otroProcesoCrea_seVeTrasUnCambioPropio()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\propio.txt"_s, "p"));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s));
    esperarOtroMomento();
    QVERIFY(otroProceso(
        u"/bin/sh"_s, {u"-c"_s, u"printf hola > \"$0/Foto.JPG\""_s, m_casa->ruta(u"Quorvela"_s)}));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\propio.txt"_s));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s), 4);
}

void tst_DriveC::otroProcesoBorra_seVe()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\Foto.jpg"_s, "1"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\FOTO.jpg"_s), 1);
    esperarOtroMomento();
    QVERIFY(otroProceso(u"/bin/rm"_s, {m_casa->ruta(u"Quorvela/Foto.jpg"_s)}));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\FOTO.jpg"_s));
    // The spelling that is gone no longer counts.
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\FOTO.jpg"_s, "2"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"FOTO.jpg"_s});
}

void tst_DriveC::otroProcesoRenombra_seVe()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\NOTAS\\a.txt"_s, "1"));
    esperarOtroMomento();
    QVERIFY(otroProceso(u"/bin/mv"_s,
                        {m_casa->ruta(u"Quorvela/notas"_s), m_casa->ruta(u"Quorvela/Notas"_s)}));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\NOTAS\\a.txt"_s, "2"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"Notas"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/Notas/a.txt"_s), QByteArray("12"));
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
    QCOMPARE(m_disco->rutaNativa(ruta), dentro.isEmpty() ? ruta : m_casa->ruta(dentro));
}

QTEST_GUILESS_MAIN(tst_DriveC)
#include "tst_DriveC.moc"
