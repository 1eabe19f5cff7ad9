// SPDX-License-Identifier: MIT
#include "ServidorGuion.h"
#include "consultaEscuela.h"
#include "demostracion/ServicioDemo.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class tst_HttpClient : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void peticionDeTexto_bytesExactos();
    void descarga_bytesExactos();
    void cabeceras_enSuOrdenYLetra();
    void destino_enLinea_data();
    void destino_enLinea();
    void direccionSinRuta_pideLaRaiz_data();
    void direccionSinRuta_pideLaRaiz();

    void galletas_compartidasPorTextoYDescarga();
    void galletas_deOtroCliente_no();
    void galletas_retiradas_noVan();

    void sinServidor_falla();
    void direccionImposible_falla_data();
    void direccionImposible_falla();
    void autoridadesAusentes_noAtanenAHttp();

private:
    std::unique_ptr<ServicioDemo> m_servicio = std::make_unique<ServicioDemo>();
    QByteArray base() const { return m_servicio->base().toLatin1(); }
};

void tst_HttpClient::initTestCase()
{
    sinProxy();
}

void tst_HttpClient::init()
{
    m_servicio->quitarFallas();
    m_servicio->olvidarPeticiones();
}

void tst_HttpClient::peticionDeTexto_bytesExactos()
{
    HttpClient http;
    QCOMPARE(http.get(base() + consulta, cabecerasTexto), valor);
    QCOMPARE(m_servicio->peticiones().size(), 1);
    QCOMPARE(m_servicio->peticiones().first().bytes,
             QByteArray("GET /querys/tessarin/tomarValor.php?idcolegio=123&campo=CDANE HTTP/1.1\r\n"
                        "Host: "
                        + base().mid(7)
                        + "\r\n"
                          "User-Agent: Parvanel/4.0\r\n"
                          "Accept: */*\r\n"
                          "Accept-Encoding: gzip, deflate\r\n"
                          "Content-type: application/x-www-form-urlencoded\r\n"
                          "Content-length: 0\r\n"
                          "Connection: close\r\n"
                          "\r\n"));
}

void tst_HttpClient::descarga_bytesExactos()
{
    HttpClient http;
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.getArchivo(base() + consulta, destino));
    QCOMPARE(destino.data(), valor);
    QCOMPARE(m_servicio->peticiones().size(), 1);
    QCOMPARE(m_servicio->peticiones().first().bytes,
             QByteArray("GET /querys/tessarin/tomarValor.php?idcolegio=123&campo=CDANE HTTP/1.1\r\n"
                        "Host: "
                        + base().mid(7)
                        + "\r\n"
                          "User-Agent: Parvanel/4.0\r\n"
                          "Accept: */*\r\n"
                          "Accept-Encoding: gzip, deflate\r\n"
                          "\r\n"));
}

void tst_HttpClient::cabeceras_enSuOrdenYLetra()
{
    HttpClient http;
    QVERIFY(http.get(base() + consulta, {{"x-SEGUNDA", "2"}, {"X-primera", "a b;c"}}));
    // A handle that has been used keeps nothing of its last request.
    QVERIFY(http.get(base() + consulta, {{"x-Tercera", "3"}}));
    QVERIFY(m_servicio->peticiones().first().bytes.endsWith(
        "Accept-Encoding: gzip, deflate\r\nx-SEGUNDA: 2\r\nX-primera: a b;c\r\n\r\n"));
    QVERIFY(m_servicio->peticiones().last().bytes.endsWith(
        "Accept-Encoding: gzip, deflate\r\nx-Tercera: 3\r\n\r\n"));
}

void tst_HttpClient::destino_enLinea_data()
{
    QTest::addColumn<QByteArray>("pedido");
    QTest::addColumn<QByteArray>("enLinea");
    QTest::newRow("blanco") << QByteArray("/a b?c=d e ") << QByteArray("/a%20b?c=d%20e%20");
    QTest::newRow("acentos de la pagina de codigos")
        << QByteArray("/f.png?t=\xC1lgebra y Espa\xF1ol \x80")
        << QByteArray("/f.png?t=%C1lgebra%20y%20Espa%F1ol%20%80");
    QTest::newRow("controles") << QByteArray("/a\tb\r\nc\x01\x1F\x7F"
                                             "d")
                               << QByteArray("/a%09b%0D%0Ac%01%1F%7Fd");
    QTest::newRow("cero") << QByteArray("/a\0b", 4) << QByteArray("/a%00b");
    QTest::newRow("los que no caben")
        << QByteArray("/\"#<>\\^`{|}") << QByteArray("/%22%23%3C%3E%5C%5E%60%7B%7C%7D");
    QTest::newRow("numeral en la consulta")
        << QByteArray("/a?b=#1&c=2") << QByteArray("/a?b=%231&c=2");
    QTest::newRow("los que quedan")
        << QByteArray("/!$%&'()*+,-.:;=?@[]_~") << QByteArray("/!$%&'()*+,-.:;=?@[]_~");
    QTest::newRow("barras dobles") << QByteArray("//a//b//?//") << QByteArray("//a//b//?//");
    QTest::newRow("puntos") << QByteArray("/a/../b/./c/..") << QByteArray("/a/../b/./c/..");
    QTest::newRow("puntos al principio") << QByteArray("/../../a") << QByteArray("/../../a");
    QTest::newRow("porcentaje ya escrito") << QByteArray("/a%20b%zz%") << QByteArray("/a%20b%zz%");
    QTest::newRow("varias preguntas")
        << QByteArray("/a?b?c=d?&e&&=f") << QByteArray("/a?b?c=d?&e&&=f");
    QTest::newRow("direccion dentro") << QByteArray("/existe.php?f=http://h:1/jup/x.jpg")
                                      << QByteArray("/existe.php?f=http://h:1/jup/x.jpg");
    QTest::newRow("arroba en la ruta") << QByteArray("/a@b:c/d@e") << QByteArray("/a@b:c/d@e");
}

void tst_HttpClient::destino_enLinea()
{
    QFETCH(QByteArray, pedido);
    QFETCH(QByteArray, enLinea);
    HttpClient http;
    QVERIFY(http.get(base() + pedido, cabecerasTexto));
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    http.getArchivo(base() + pedido, destino); // most of these the school does not have
    QCOMPARE(m_servicio->peticiones().size(), 2);
    QCOMPARE(m_servicio->peticiones().first().destino, enLinea);
    QCOMPARE(m_servicio->peticiones().last().destino, enLinea);
}

void tst_HttpClient::direccionSinRuta_pideLaRaiz_data()
{
    QTest::addColumn<QByteArray>("resto");
    QTest::addColumn<QByteArray>("enLinea");
    QTest::newRow("nada") << QByteArray() << QByteArray("/");
    QTest::newRow("barra") << QByteArray("/") << QByteArray("/");
    QTest::newRow("consulta") << QByteArray("?a=/b") << QByteArray("/?a=/b");
}

void tst_HttpClient::direccionSinRuta_pideLaRaiz()
{
    QFETCH(QByteArray, resto);
    QFETCH(QByteArray, enLinea);
    HttpClient http;
    QVERIFY(http.get(base() + resto, {}));
    QCOMPARE(m_servicio->peticiones().first().destino, enLinea);
}

void tst_HttpClient::galletas_compartidasPorTextoYDescarga()
{
    const ServidorGuion guion([](ServidorGuion::Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        const QByteArray destino = cabeza.split(' ').value(1);
        charla.enviar("HTTP/1.1 200 OK\r\nSet-Cookie: " + destino.mid(1) + "=1; path=/\r\n\r\n");
        charla.terminar();
        charla.clienteCierra();
    });
    HttpClient http;
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.get(guion.base() + "/texto", cabecerasTexto));
    QVERIFY(http.getArchivo(guion.base() + "/descarga", destino));
    QVERIFY(http.get(guion.base() + "/otra", cabecerasTexto));
    QVERIFY(!guion.cabezas().at(0).contains("Cookie:"));
    QVERIFY(guion.cabezas().at(1).contains("\r\nCookie: texto=1\r\n"));
    QVERIFY2(guion.cabezas().at(2).contains("\r\nCookie: texto=1; descarga=1\r\n")
                 || guion.cabezas().at(2).contains("\r\nCookie: descarga=1; texto=1\r\n"),
             guion.cabezas().at(2).constData());
}

void tst_HttpClient::galletas_deOtroCliente_no()
{
    const ServidorGuion guion("HTTP/1.1 200 OK\r\nSet-Cookie: a=1; path=/; Max-Age=9999\r\n\r\n");
    for (int vez = 0; vez < 2; ++vez) {
        HttpClient http;
        QVERIFY(http.get(guion.base() + "/", {}));
    }
    QVERIFY(!guion.cabezas().last().contains("Cookie:"));
}

void tst_HttpClient::galletas_retiradas_noVan()
{
    const ServidorGuion guion([](ServidorGuion::Charla &charla) {
        charla.leerCabeza();
        charla.enviar(charla.numero == 0
                          ? "HTTP/1.1 200 OK\r\nSet-Cookie: a=1\r\nSet-Cookie: b=2\r\n\r\n"
                          : "HTTP/1.1 200 OK\r\nSet-Cookie: a=1; Max-Age=0\r\n\r\n");
        charla.terminar();
        charla.clienteCierra();
    });
    HttpClient http;
    for (int vez = 0; vez < 3; ++vez)
        QVERIFY(http.get(guion.base() + "/", {}));
    QVERIFY(guion.cabezas().at(1).contains("a=1"));
    QVERIFY(guion.cabezas().at(2).contains("\r\nCookie: b=2\r\n"));
}

void tst_HttpClient::sinServidor_falla()
{
    const QByteArray nadie = std::make_unique<ServidorGuion>("x")->base(); // and gone again
    HttpClient http;
    QCOMPARE(http.get(nadie + "/", cabecerasTexto), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(nadie + "/", destino));
    QCOMPARE(http.get(base() + consulta, cabecerasTexto), valor);
}

void tst_HttpClient::direccionImposible_falla_data()
{
    QTest::addColumn<QByteArray>("direccion");
    QTest::newRow("vacia") << QByteArray();
    QTest::newRow("sin servidor") << QByteArray("http://");
    QTest::newRow("sin servidor, con ruta") << QByteArray("http:///x");
    QTest::newRow("puerto imposible") << QByteArray("http://127.0.0.1:99999/");
    QTest::newRow("blanco en el nombre") << QByteArray("http://no existe/");
    QTest::newRow("nombre que no existe") << QByteArray("http://no-existe.invalid/");
    QTest::newRow("archivo") << QByteArray("file:///etc/hostname");
    QTest::newRow("otro protocolo") << QByteArray("ftp://127.0.0.1/x");
    QTest::newRow("sin protocolo ni nombre") << QByteArray("/querys/tessarin/login.php");
}

void tst_HttpClient::direccionImposible_falla()
{
    QFETCH(QByteArray, direccion);
    HttpClient http;
    QCOMPARE(http.get(direccion, cabecerasTexto), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(direccion, destino));
    QVERIFY(destino.data().isEmpty());
    QCOMPARE(http.get(base() + consulta, cabecerasTexto), valor);
}

void tst_HttpClient::autoridadesAusentes_noAtanenAHttp()
{
    HttpClient http(u"/no/existe.pem"_s);
    QCOMPARE(http.get(base() + consulta, cabecerasTexto), valor);
}

QTEST_MAIN(tst_HttpClient)
#include "tst_HttpClient.moc"
