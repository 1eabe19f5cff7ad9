// SPDX-License-Identifier: MIT
// The readers of what stands in an archive's files: addresses, styles, images and scripts.
#include "direccion.h"
#include "estilo.h"
#include "guion.h"
#include "imagen.h"
#include "pagina.h"

#include <QBuffer>
#include <QImage>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A GIF of one dot.
const char *const puntoGif =
    "47494638396101000100800000ffffff0000002c00000000010001000002024401003b";

} // namespace

class tst_lectores : public QObject {
    Q_OBJECT
private:
    static QByteArray imagenEn(const char *clase)
    {
        QImage imagen(64, 48, QImage::Format_RGB32);
        for (int y = 0; y < 48; ++y) {
            for (int x = 0; x < 64; ++x)
                imagen.setPixel(x, y, qRgb(x * 4, y * 5, (x * y) % 255));
        }
        QByteArray bytes;
        QBuffer memoria(&bytes);
        [[maybe_unused]] const bool abierta = memoria.open(QIODevice::WriteOnly);
        imagen.save(&memoria, clase);
        return bytes;
    }

private Q_SLOTS:
    void direccion_seLeeComoEnUnNavegador_data()
    {
        QTest::addColumn<QByteArray>("escrita");
        QTest::addColumn<int>("clase");
        QTest::addColumn<QString>("ruta");
        QTest::addColumn<int>("arriba");
        const int r = Direccion::Relativa;
        QTest::newRow("beside") << QByteArray("x.html") << r << u"archivos/salones/x.html"_s << 0;
        QTest::newRow("up") << QByteArray("../fotos/x.jpg") << r << u"archivos/fotos/x.jpg"_s << 0;
        QTest::newRow("backslashes")
            << QByteArray("..\\images\\logo.png") << r << u"archivos/images/logo.png"_s << 0;
        QTest::newRow("both") << QByteArray("../../archivos\\images\\logo.png") << r
                              << u"archivos/images/logo.png"_s << 0;
        QTest::newRow("dots") << QByteArray("./.././//x.html") << r << u"archivos/x.html"_s << 0;
        QTest::newRow("percent") << QByteArray("a%20b%C3%B1.html") << r
                                 << u"archivos/salones/a bñ.html"_s << 0;
        QTest::newRow("escaped dots")
            << QByteArray("%2e%2E/x.html") << r << u"archivos/x.html"_s << 0;
        QTest::newRow("percent of Windows")
            << QByteArray("%F1.html") << r << u"archivos/salones/ñ.html"_s << 0;
        QTest::newRow("query and place")
            << QByteArray("x.html?a=../b#c/d") << r << u"archivos/salones/x.html"_s << 0;
        QTest::newRow("blanks around")
            << QByteArray(" \t../x.\nhtml \r\n") << r << u"archivos/x.html"_s << 0;
        QTest::newRow("out") << QByteArray("../../../otro/x.html") << r << u"otro/x.html"_s << 1;
        QTest::newRow("folder") << QByteArray("../fotos/") << r << u"archivos/fotos/"_s << 0;
        QTest::newRow("colon further on")
            << QByteArray("../a:b.html") << r << u"archivos/a:b.html"_s << 0;
        QTest::newRow("place") << QByteArray("#arriba") << int(Direccion::Nada) << QString() << 0;
        QTest::newRow("nothing") << QByteArray("  ") << int(Direccion::Nada) << QString() << 0;
        QTest::newRow("mail") << QByteArray("mailto:a@b.c") << int(Direccion::Nada) << QString()
                              << 0;
        QTest::newRow("script") << QByteArray("javascript:history.back()") << int(Direccion::Nada)
                                << QString() << 0;
        QTest::newRow("net") << QByteArray("HTTPS://x/y.png") << int(Direccion::EnLaRed)
                             << QString() << 0;
        QTest::newRow("file") << QByteArray("file:///C:/x") << int(Direccion::Fuera) << QString()
                              << 0;
        QTest::newRow("drive") << QByteArray("c:\\x") << int(Direccion::Fuera) << QString() << 0;
        QTest::newRow("absolute") << QByteArray("/x") << int(Direccion::Fuera) << QString() << 0;
        QTest::newRow("computer") << QByteArray("\\\\servidor\\x") << int(Direccion::Fuera)
                                  << QString() << 0;
    }
    void direccion_seLeeComoEnUnNavegador()
    {
        QFETCH(QByteArray, escrita);
        QFETCH(int, clase);
        QFETCH(QString, ruta);
        QFETCH(int, arriba);
        const Direccion direccion =
            leerDireccion(escrita.toStdString(), {u"archivos"_s, u"salones"_s});
        QCOMPARE(int(direccion.clase), clase);
        if (clase == Direccion::Relativa) {
            QCOMPARE(direccion.nombres.join(u'/'), ruta);
            QCOMPARE(direccion.arriba, arriba);
            QCOMPARE(direccion.deWindows, escrita.contains("%F1"));
        }
    }

    void estilo_daSusDirecciones_data()
    {
        QTest::addColumn<QByteArray>("css");
        QTest::addColumn<QStringList>("direcciones");
        QTest::newRow("bare") << QByteArray("a{background:url(x.gif) no-repeat}")
                              << QStringList{u"x.gif"_s};
        QTest::newRow("quoted") << QByteArray("a{background:URL( \"x y.gif\" )}b{c:url('z')}")
                                << QStringList{u"x y.gif"_s, u"z"_s};
        QTest::newRow("import") << QByteArray("@import 'a.css'; @IMPORT url(b.css) print;")
                                << QStringList{u"a.css"_s, u"b.css"_s};
        QTest::newRow("comment") << QByteArray("/* url(x) */ a{b:url(y)}") << QStringList{u"y"_s};
        QTest::newRow("text") << QByteArray("a::before{content:\"url(x)\"}") << QStringList{};
        QTest::newRow("another name") << QByteArray("a{b:curl(x)}") << QStringList{};
        QTest::newRow("escapes") << QByteArray("a{b:url(x\\29 y\\).gif)}")
                                 << QStringList{u"x)y).gif"_s};
        QTest::newRow("never ends") << QByteArray("a{b:url(x") << QStringList{u"x"_s};
    }
    void estilo_daSusDirecciones()
    {
        QFETCH(QByteArray, css);
        QFETCH(QStringList, direcciones);
        QStringList halladas;
        for (const std::string &una : direccionesDeEstilo(css.toStdString()))
            halladas.append(QString::fromStdString(una));
        QCOMPARE(halladas, direcciones);
    }

    void imagen_entera_esBuena_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const char *clase : {"JPG", "PNG", "BMP"})
            QTest::newRow(clase) << imagenEn(clase);
        QTest::newRow("GIF") << QByteArray::fromHex(puntoGif);
        QTest::newRow("bytes after its end") << imagenEn("PNG") + "\r\n";
        QTest::newRow("JPEG with bytes after its end") << imagenEn("JPG") + "\r\n";
    }
    void imagen_entera_esBuena()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!bytes.isEmpty());
        QCOMPARE(estadoDeImagen(bytes), EstadoImagen::Buena);
    }

    void gif_cortado_nuncaEsBueno()
    {
        const QByteArray entero = QByteArray::fromHex(puntoGif);
        for (qsizetype largo = 0; largo < entero.size(); ++largo)
            QVERIFY2(estadoDeImagen(entero.left(largo)) != EstadoImagen::Buena,
                     qPrintable(QString::number(largo)));
    }

    // Wherever it is cut before its end's mark.
    void imagen_cortada_nuncaEsBuena()
    {
        for (const char *clase : {"JPG", "PNG"}) {
            const QByteArray entera = imagenEn(clase);
            for (qsizetype largo = 0; largo < entera.size() - 2; ++largo)
                QVERIFY2(estadoDeImagen(entera.left(largo)) != EstadoImagen::Buena,
                         qPrintable(QString::number(largo)));
        }
    }

    void pagina_enCualquierCodificacion_daSusNombres()
    {
        const PaginaLeida windows = leerPagina("<title>Pe\xF1"
                                               "a</title><a href='\xF1.html'>x</a>");
        QCOMPARE(windows.titulo, u"Peña"_s);
        QCOMPARE(windows.enlaces.size(), std::size_t(1));
        QCOMPARE(QString::fromStdString(windows.enlaces[0].direccion), u"ñ.html"_s);
        const PaginaLeida utf8 = leerPagina("<meta charset='UTF-8'><title>Pe\xC3\xB1"
                                            "a</title>");
        QCOMPARE(utf8.titulo, u"Peña"_s);
        QVERIFY(utf8.conElementos);
        QVERIFY(!leerPagina("solo texto & nada m\xE1s").conElementos);
    }

    void pagina_deUnaLista_daElNombreDeCadaFila()
    {
        const PaginaLeida pagina =
            leerPagina("<table><tr><td>1</td><td>1001</td><td>PE\xD1"
                       "A ANA</td><td><a href='../infoFinal/1001.html'>Informe final</a>"
                       "<a href='../certificados/1001.html'>Certificado</a></td></tr></table>"
                       "<a href='../salones/6.html'><b>SEXTO</b><small>30</small></a>");
        QCOMPARE(pagina.enlaces.size(), std::size_t(3));
        QCOMPARE(pagina.enlaces[0].rotulo, u"PEÑA ANA"_s);
        QCOMPARE(pagina.enlaces[1].rotulo, QString());
        QCOMPARE(pagina.enlaces[2].propio, u"SEXTO"_s);
    }

    void biblioteca_deOtraEpoca_esBuena()
    {
        using guion::EstadoBiblioteca;
        QCOMPARE(guion::estadoDeBiblioteca("const a = (x) => `${x}`;\n"), EstadoBiblioteca::Buena);
        QCOMPARE(guion::estadoDeBiblioteca("(function(){ return 1;"), EstadoBiblioteca::Cortada);
        QCOMPARE(guion::estadoDeBiblioteca("var a = 'x"), EstadoBiblioteca::Cortada);
        QCOMPARE(guion::estadoDeBiblioteca(" \r\n"), EstadoBiblioteca::Vacia);
        QCOMPARE(guion::estadoDeBiblioteca("<html>"), EstadoBiblioteca::EsPagina);
    }
};

QTEST_MAIN(tst_lectores)
#include "tst_lectores.moc"
