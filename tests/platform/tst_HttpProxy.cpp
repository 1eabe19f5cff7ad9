// SPDX-License-Identifier: MIT
#include "ServidorGuion.h"
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QTest>

using Charla = ServidorGuion::Charla;

namespace {

// A tunnel whose other end is played by the proxy itself.
ServidorGuion::Guion tunelQueContesta(const QByteArray &respuesta)
{
    return [respuesta](Charla &charla) {
        charla.leerCabeza();
        charla.enviar(
            "HTTP/1.1 200 Connection established\r\nLocation: /proxy\r\nSet-Cookie: p=1\r\n\r\n");
        charla.leerCabeza();
        charla.enviar(respuesta);
        charla.terminar();
        charla.clienteCierra();
    };
}

} // namespace

class tst_HttpProxy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanupTestCase();

    void deTexto_bytesExactos();
    void descarga_porElTunel();
    void respuestaDelProxy_noSeMezcla();
    void servidorExceptuado_directo();
    void proxyQueRechaza_falla_data();
    void proxyQueRechaza_falla();
    void proxyAusente_falla();
};

void tst_HttpProxy::init()
{
    sinProxy();
}

void tst_HttpProxy::cleanupTestCase()
{
    sinProxy();
}

// The caller's headers are for the service alone, and the target goes out as it was built.
void tst_HttpProxy::deTexto_bytesExactos()
{
    const ServidorGuion proxy(tunelQueContesta("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola"));
    qputenv("http_proxy", proxy.base());
    HttpClient http;
    QCOMPARE(http.get("http://servicio.example//a/../b?c=d e",
                      {{"Content-type", "application/x-www-form-urlencoded"},
                       {"Content-length", "0"},
                       {"Connection", "close"}}),
             QByteArray("hola"));
    QCOMPARE(proxy.conexiones(), 1);
    QCOMPARE(proxy.cabezas(),
             (QList<QByteArray>{"CONNECT servicio.example:80 HTTP/1.1\r\n"
                                "Host: servicio.example:80\r\n"
                                "User-Agent: Parvanel/4.0\r\n"
                                "Proxy-Connection: Keep-Alive\r\n"
                                "\r\n",
                                "GET //a/../b?c=d%20e HTTP/1.1\r\n"
                                "Host: servicio.example\r\n"
                                "User-Agent: Parvanel/4.0\r\n"
                                "Accept: */*\r\n"
                                "Accept-Encoding: gzip, deflate\r\n"
                                "Content-type: application/x-www-form-urlencoded\r\n"
                                "Content-length: 0\r\n"
                                "Connection: close\r\n"
                                "\r\n"}));
}

void tst_HttpProxy::descarga_porElTunel()
{
    const ServidorGuion proxy(tunelQueContesta("HTTP/1.1 200 OK\r\n\r\n123456789"));
    qputenv("http_proxy", proxy.base());
    HttpClient http;
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.getArchivo("http://servicio.example:8080/foto.jpg", destino));
    QCOMPARE(destino.data(), QByteArray("123456789"));
    QVERIFY(proxy.cabezas().first().startsWith("CONNECT servicio.example:8080 HTTP/1.1\r\n"));
}

// What the proxy says about the tunnel is no part of the service's reply.
void tst_HttpProxy::respuestaDelProxy_noSeMezcla()
{
    const ServidorGuion proxy(tunelQueContesta("HTTP/1.1 302 Found\r\n\r\ncuerpo"));
    qputenv("http_proxy", proxy.base());
    HttpClient http;
    QCOMPARE(http.get("http://servicio.example/", {}), QByteArray("cuerpo"));
    const ServidorGuion cortado(tunelQueContesta("HTTP/1.1 200 OK\r\nContent-Le"));
    qputenv("http_proxy", cortado.base());
    QCOMPARE(http.get("http://servicio.example/", {}), std::nullopt);
}

void tst_HttpProxy::servidorExceptuado_directo()
{
    const ServidorGuion proxy("HTTP/1.1 500 No\r\n\r\n");
    const ServidorGuion servidor("HTTP/1.1 200 OK\r\n\r\nhola");
    qputenv("http_proxy", proxy.base());
    qputenv("no_proxy", "otro.example,127.0.0.1");
    HttpClient http;
    QCOMPARE(http.get(servidor.base() + "/a", {}), QByteArray("hola"));
    QCOMPARE(proxy.conexiones(), 0);
    QCOMPARE(servidor.destinos(), QList<QByteArray>{"/a"});
}

void tst_HttpProxy::proxyQueRechaza_falla_data()
{
    QTest::addColumn<QByteArray>("respuesta");
    QTest::newRow("403") << QByteArray("HTTP/1.1 403 No\r\nContent-Length: 2\r\n\r\nno");
    QTest::newRow("407") << QByteArray(
        "HTTP/1.1 407 Quien\r\nProxy-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n");
    QTest::newRow("502") << QByteArray("HTTP/1.1 502 Mal\r\n\r\nno se puede");
    QTest::newRow("302") << QByteArray(
        "HTTP/1.1 302 Found\r\nLocation: http://127.0.0.1:9/\r\nContent-Length: 0\r\n\r\n");
    QTest::newRow("cierra") << QByteArray();
    QTest::newRow("basura") << QByteArray("esto no es HTTP\r\n\r\n");
}

void tst_HttpProxy::proxyQueRechaza_falla()
{
    QFETCH(QByteArray, respuesta);
    const ServidorGuion proxy(respuesta);
    qputenv("http_proxy", proxy.base());
    HttpClient http;
    QCOMPARE(http.get("http://servicio.example/", {}), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo("http://servicio.example/", destino));
    QCOMPARE(proxy.conexiones(), 2);
}

void tst_HttpProxy::proxyAusente_falla()
{
    const ServidorGuion servidor("HTTP/1.1 200 OK\r\n\r\nhola");
    qputenv("http_proxy", ServidorGuion("x").base()); // and gone again
    HttpClient http;
    QCOMPARE(http.get(servidor.base() + "/", {}), std::nullopt);
    QCOMPARE(servidor.conexiones(), 0);
}

QTEST_GUILESS_MAIN(tst_HttpProxy)
#include "tst_HttpProxy.moc"
