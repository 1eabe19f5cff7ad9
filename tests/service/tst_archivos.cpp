// SPDX-License-Identifier: MIT
#include "escenario/Escenario.h"
#include "service/archivos.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {
const QString destino = QStringLiteral("c:\\Quorvela\\a\\f.png");
}

class tst_archivos : public QObject {
    Q_OBJECT
private:
    void hacerCarpeta(Escenario &e)
    {
        crearCarpeta(e.entorno, QStringLiteral("C:\\Quorvela"));
        crearCarpeta(e.entorno, QStringLiteral("c:\\Quorvela\\a"));
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
        QCOMPARE(descargarArchivo(e.entorno, e.demo.base() + QStringLiteral("/f.png"), destino),
                 llego);
        QCOMPARE(e.leer(QStringLiteral("a/f.png")), cuerpo);
        QVERIFY(e.existe(QStringLiteral("a/f.png")));
    }

    void descarga_pausaMedioSegundoTrasCadaIntento()
    {
        Escenario e;
        hacerCarpeta(e);
        e.responder("/f.png", "123456789");
        descargarArchivo(e.entorno, e.demo.base() + QStringLiteral("/f.png"), destino);
        descargarArchivo(e.entorno, e.demo.base() + QStringLiteral("/nada.png"), destino);
        QCOMPARE(e.pausas, QList<std::chrono::milliseconds>(
                               {std::chrono::milliseconds(500), std::chrono::milliseconds(500)}));
    }

    void rutaConSaltos_recibeElArchivoPeroDaFalso()
    {
        Escenario e;
        hacerCarpeta(e);
        e.responder("/f.png", "123456789");
        QVERIFY(!descargarArchivo(e.entorno, e.demo.base() + QStringLiteral("/f.png"),
                                  QStringLiteral("c:\\Quorvela\\a\\f.png\r\n")));
        QCOMPARE(e.leer(QStringLiteral("a/f.png")), QByteArray("123456789"));
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
        const QString url = e.demo.base() + QStringLiteral("/images/colegios/123/logo.png");
        QVERIFY(descargarArchivo(e.entorno, url, destino));
        e.demo.quitarFallas();
        Falla falla;
        falla.clase = static_cast<Falla::Clase>(clase);
        falla.estado = 500;
        falla.cuerpo = "una pagina de error";
        e.demo.fallar("logo.png", falla);
        QVERIFY(!descargarArchivo(e.entorno, url, destino));
        QCOMPARE(e.listar(QStringLiteral("a")), QStringList());
    }

    void descargaSinCarpeta_pideIgualYDaFalso()
    {
        Escenario e;
        e.responder("/f.png", "123456789");
        QVERIFY(!descargarArchivo(e.entorno, e.demo.base() + QStringLiteral("/f.png"), destino));
        QCOMPARE(e.destinos(), QStringList({QStringLiteral("/f.png")}));
    }

    void descarga_noLlevaLasCabecerasDeTexto()
    {
        Escenario e;
        hacerCarpeta(e);
        e.responder("/f.png", "123456789");
        descargarArchivo(e.entorno, e.demo.base() + QStringLiteral("/f.png"), destino);
        const QByteArray bytes = e.demo.peticiones().first().bytes.toLower();
        QVERIFY(!bytes.contains("content-type"));
        QVERIFY(!bytes.contains("content-length"));
    }

    void escribirDosVecesSinBorrar_agregaDosRenglones()
    {
        Escenario e;
        hacerCarpeta(e);
        const QString archivo = QStringLiteral("c:\\Quorvela\\a\\t.txt");
        escribirTexto(e.entorno, QStringLiteral("x"), archivo, false);
        escribirTexto(e.entorno, QStringLiteral("x"), archivo, false);
        QCOMPARE(e.leer(QStringLiteral("a/t.txt")), QByteArray("x\r\nx\r\n"));
    }

    void escribirConBorrar_dejaSoloElTextoNuevo()
    {
        Escenario e;
        hacerCarpeta(e);
        const QString archivo = QStringLiteral("c:\\Quorvela\\a\\t.txt");
        escribirTexto(e.entorno, QStringLiteral("uno mas largo"), archivo, true);
        escribirTexto(e.entorno, QStringLiteral("dos"), archivo, true);
        QCOMPARE(e.leer(QStringLiteral("a/t.txt")), QByteArray("dos\r\n"));
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
        const QString archivo = QStringLiteral("c:\\Quorvela\\a\\") + pedido;
        QVERIFY(ponerViejos());
        escribirTexto(e.entorno, QStringLiteral("nuevo"), archivo, true);
        QCOMPARE(e.leer(QStringLiteral("a/") + pedido), QByteArray("nuevo\r\n"));

        QVERIFY(ponerViejos());
        e.responder("/f.png", "123456789");
        QVERIFY(descargarArchivo(e.entorno, e.demo.base() + QStringLiteral("/f.png"), archivo));
        QCOMPARE(e.leer(QStringLiteral("a/") + pedido), QByteArray("123456789"));
        // One that does not arrive leaves nothing that could be taken for it.
        QVERIFY(!descargarArchivo(e.entorno, e.demo.base() + QStringLiteral("/nada.png"), archivo));
        QVERIFY(!e.existe(QStringLiteral("a/") + pedido));
    }

    void texto_seGuardaEnElCodigo1252()
    {
        Escenario e;
        hacerCarpeta(e);
        escribirTexto(e.entorno, QStringLiteral("Ñandú \u20AC \u4E2D"),
                      QStringLiteral("c:\\Quorvela\\a\\t.txt"), true);
        QCOMPARE(e.leer(QStringLiteral("a/t.txt")), QByteArray("\xD1"
                                                               "and\xFA \x80 ?\r\n"));
    }

    void escribirDondeNoSePuede_noDejaNadaNiSeQueja()
    {
        Escenario e;
        hacerCarpeta(e);
        escribirTexto(e.entorno, QStringLiteral("x"), QStringLiteral("c:\\Quorvela\\no\\t.txt"),
                      true);
        escribirTexto(e.entorno, QStringLiteral("x"), QStringLiteral("c:\\Quorvela\\a\\a|b.html"),
                      true);
        escribirTexto(e.entorno, QStringLiteral("x"), QStringLiteral("c:\\Quorvela\\..\\f.html"),
                      true);
        QCOMPARE(e.listar(QString()), QStringList({QStringLiteral("a")}));
        QCOMPARE(e.listar(QStringLiteral("a")), QStringList());
        QCOMPARE(QDir(e.personal.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList({QStringLiteral("Quorvela")}));
    }

    void carpetaConSaltosEnSuRuta_seHaceSinEllos()
    {
        Escenario e;
        crearCarpeta(e.entorno, QStringLiteral("C:\\Quorvela"));
        crearCarpeta(e.entorno, QStringLiteral("c:\\Quorvela\\123\r\n-2010\\"));
        QCOMPARE(e.listar(QString()), QStringList({QStringLiteral("123-2010")}));
    }

    void carpetaSinSuMadre_noSeHace()
    {
        Escenario e;
        crearCarpeta(e.entorno, QStringLiteral("C:\\Quorvela"));
        crearCarpeta(e.entorno, QStringLiteral("c:\\Quorvela\\a\\b"));
        QCOMPARE(e.listar(QString()), QStringList());
    }
};

QTEST_MAIN(tst_archivos)
#include "tst_archivos.moc"
