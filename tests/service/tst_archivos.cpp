// SPDX-License-Identifier: MIT
#include "escenario/Escenario.h"
#include "service/archivos.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString destino = u"c:\\Quorvela\\a\\f.png"_s;
}

class tst_archivos : public QObject {
    Q_OBJECT
private:
    void hacerCarpeta(Escenario &e)
    {
        crearCarpeta(e.entorno, u"C:\\Quorvela"_s);
        crearCarpeta(e.entorno, u"c:\\Quorvela\\a"_s);
    }

private Q_SLOTS:
    void descarga_valeSoloConMasDeOchoBytes_data()
    {
        QTest::addColumn<QByteArray>("cuerpo");
        QTest::addColumn<bool>("llego");
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("exactly 8 bytes") << QByteArray("12345678") << false;
        QTest::newRow("9 bytes") << QByteArray("123456789") << true;
    }
    void descarga_valeSoloConMasDeOchoBytes()
    {
        QFETCH(QByteArray, cuerpo);
        QFETCH(bool, llego);
        Escenario e;
        hacerCarpeta(e);
        e.responder("/f.png", cuerpo);
        QCOMPARE(descargarArchivo(e.entorno, e.demo.base() + u"/f.png"_s, destino), llego);
        QCOMPARE(e.leer(u"a/f.png"_s), cuerpo);
        QVERIFY(e.existe(u"a/f.png"_s));
    }

    void descarga_pausaMedioSegundoTrasCadaIntento()
    {
        Escenario e;
        hacerCarpeta(e);
        e.responder("/f.png", "123456789");
        descargarArchivo(e.entorno, e.demo.base() + u"/f.png"_s, destino);
        descargarArchivo(e.entorno, e.demo.base() + u"/nada.png"_s, destino);
        QCOMPARE(e.pausas, QList<std::chrono::milliseconds>(
                               {std::chrono::milliseconds(500), std::chrono::milliseconds(500)}));
    }

    void rutaConSaltos_recibeElArchivoPeroDaFalso()
    {
        Escenario e;
        hacerCarpeta(e);
        e.responder("/f.png", "123456789");
        QVERIFY(!descargarArchivo(e.entorno, e.demo.base() + u"/f.png"_s,
                                  u"c:\\Quorvela\\a\\f.png\r\n"_s));
        QCOMPARE(e.leer(u"a/f.png"_s), QByteArray("123456789"));
    }

    void descargaFallida_noDejaElArchivoViejo_data()
    {
        QTest::addColumn<int>("clase");
        QTest::newRow("status 500") << int(Falla::Estado);
        QTest::newRow("closed before") << int(Falla::CierraAntes);
        QTest::newRow("cut off") << int(Falla::CierraEnMedio);
        QTest::newRow("garbage") << int(Falla::Basura);
    }
    void descargaFallida_noDejaElArchivoViejo()
    {
        QFETCH(int, clase);
        Escenario e;
        hacerCarpeta(e);
        e.responder("logo.png", "el archivo viejo");
        const QString url = e.demo.base() + u"/images/colegios/123/logo.png"_s;
        QVERIFY(descargarArchivo(e.entorno, url, destino));
        e.demo.quitarFallas();
        Falla falla;
        falla.clase = static_cast<Falla::Clase>(clase);
        falla.estado = 500;
        falla.cuerpo = "una pagina de error";
        e.demo.fallar("logo.png", falla);
        QVERIFY(!descargarArchivo(e.entorno, url, destino));
        QCOMPARE(e.listar(u"a"_s), QStringList());
    }

    void descargaSinCarpeta_pideIgualYDaFalso()
    {
        Escenario e;
        e.responder("/f.png", "123456789");
        QVERIFY(!descargarArchivo(e.entorno, e.demo.base() + u"/f.png"_s, destino));
        QCOMPARE(e.destinos(), QStringList({u"/f.png"_s}));
    }

    void descarga_noLlevaLasCabecerasDeTexto()
    {
        Escenario e;
        hacerCarpeta(e);
        e.responder("/f.png", "123456789");
        descargarArchivo(e.entorno, e.demo.base() + u"/f.png"_s, destino);
        const QByteArray bytes = e.demo.peticiones().first().bytes.toLower();
        QVERIFY(!bytes.contains("content-type"));
        QVERIFY(!bytes.contains("content-length"));
    }

    void escribirDosVecesSinBorrar_agregaDosRenglones()
    {
        Escenario e;
        hacerCarpeta(e);
        const QString archivo = u"c:\\Quorvela\\a\\t.txt"_s;
        escribirTexto(e.entorno, u"x"_s, archivo, false);
        escribirTexto(e.entorno, u"x"_s, archivo, false);
        QCOMPARE(e.leer(u"a/t.txt"_s), QByteArray("x\r\nx\r\n"));
    }

    void escribirConBorrar_dejaSoloElTextoNuevo()
    {
        Escenario e;
        hacerCarpeta(e);
        const QString archivo = u"c:\\Quorvela\\a\\t.txt"_s;
        escribirTexto(e.entorno, u"uno mas largo"_s, archivo, true);
        escribirTexto(e.entorno, u"dos"_s, archivo, true);
        QCOMPARE(e.leer(u"a/t.txt"_s), QByteArray("dos\r\n"));
    }

    // Two entries that differ in letter case only: the old text of one is never taken for what is
    // written under the other's name.
    void dosEscrituras_nadaViejoSeJunta_data()
    {
        QTest::addColumn<QString>("pedido");
        for (const char *pedido : {"f.png", "F.png", "F.PNG"})
            QTest::newRow(pedido) << QString::fromLatin1(pedido);
    }
    void dosEscrituras_nadaViejoSeJunta()
    {
        QFETCH(QString, pedido);
        Escenario e;
        hacerCarpeta(e);
        const auto ponerViejos = [&e] {
            for (const char *viejo : {"a/F.png", "a/f.png"}) {
                QFile archivo(e.nativa(QString::fromLatin1(viejo)));
                if (!archivo.open(QIODevice::WriteOnly) || archivo.write("texto viejo") != 11)
                    return false;
            }
            return true;
        };
        const QString archivo = u"c:\\Quorvela\\a\\"_s + pedido;
        QVERIFY(ponerViejos());
        escribirTexto(e.entorno, u"nuevo"_s, archivo, true);
        QCOMPARE(e.leer(u"a/"_s + pedido), QByteArray("nuevo\r\n"));

        QVERIFY(ponerViejos());
        e.responder("/f.png", "123456789");
        QVERIFY(descargarArchivo(e.entorno, e.demo.base() + u"/f.png"_s, archivo));
        QCOMPARE(e.leer(u"a/"_s + pedido), QByteArray("123456789"));
        // One that does not arrive leaves nothing that could be taken for it.
        QVERIFY(!descargarArchivo(e.entorno, e.demo.base() + u"/nada.png"_s, archivo));
        QVERIFY(!e.existe(u"a/"_s + pedido));
    }

    void texto_seGuardaEnElCodigo1252()
    {
        Escenario e;
        hacerCarpeta(e);
        escribirTexto(e.entorno, u"Ñandú \u20AC \u4E2D"_s, u"c:\\Quorvela\\a\\t.txt"_s, true);
        QCOMPARE(e.leer(u"a/t.txt"_s), QByteArray("\xD1"
                                                  "and\xFA \x80 ?\r\n"));
    }

    void escribirDondeNoSePuede_noDejaNadaNiSeQueja()
    {
        Escenario e;
        hacerCarpeta(e);
        escribirTexto(e.entorno, u"x"_s, u"c:\\Quorvela\\no\\t.txt"_s, true);
        escribirTexto(e.entorno, u"x"_s, u"c:\\Quorvela\\a\\a|b.html"_s, true);
        escribirTexto(e.entorno, u"x"_s, u"c:\\Quorvela\\..\\f.html"_s, true);
        QCOMPARE(e.listar(QString()), QStringList({u"a"_s}));
        QCOMPARE(e.listar(u"a"_s), QStringList());
        QCOMPARE(QDir(e.personal.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList({u"Quorvela"_s}));
    }

    void carpetaConSaltosEnSuRuta_seHaceSinEllos()
    {
        Escenario e;
        crearCarpeta(e.entorno, u"C:\\Quorvela"_s);
        crearCarpeta(e.entorno, u"c:\\Quorvela\\123\r\n-2010\\"_s);
        QCOMPARE(e.listar(QString()), QStringList({u"123-2010"_s}));
    }

    void carpetaSinSuMadre_noSeHace()
    {
        Escenario e;
        crearCarpeta(e.entorno, u"C:\\Quorvela"_s);
        crearCarpeta(e.entorno, u"c:\\Quorvela\\a\\b"_s);
        QCOMPARE(e.listar(QString()), QStringList());
    }
};

QTEST_MAIN(tst_archivos)
#include "tst_archivos.moc"
