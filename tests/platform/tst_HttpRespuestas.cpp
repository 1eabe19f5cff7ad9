// SPDX-License-Identifier: MIT
// What is taken for a reply, and what for a failure, to the byte.
#include "ServidorGuion.h"
#include "consultaEscuela.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QTest>

namespace {

// "deflate" first and "gzip" over it.
const QByteArray zlibEnGzip = QByteArray::fromHex(
    "1f8b0800000000000203ab98f359f7ef8cf8d4b51326ce9fbca2d9e5531123432d33c76400f20caae318000000");

// The same with a deflate of which half is missing.
const QByteArray zlibCortadoEnGzip =
    QByteArray::fromHex("1f8b0800000000000203ab98f359f7ef8cf8d4b51326ce0700e137e05c0c000000");

// A chunked body whose every chunk is one byte.
QByteArray porBytes(const QByteArray &cuerpo)
{
    QByteArray trozos;
    for (const char byte : cuerpo)
        trozos += QByteArray("1\r\n") + byte + "\r\n";
    return trozos + "0\r\n\r\n";
}

} // namespace

class tst_HttpRespuestas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { sinProxy(); }
    void respuesta_cuerpo_data();
    void respuesta_cuerpo();
    void respuesta_rota_data();
    void respuesta_rota();
};

void tst_HttpRespuestas::respuesta_cuerpo_data()
{
    QTest::addColumn<QByteArray>("respuesta");
    QTest::addColumn<QByteArray>("cuerpo");
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray frase = "Mu\xF1oz; hola, hola, hola\r\n";
    const QByteArray gzip = QByteArray::fromHex(
        "1f8b08000000000002fff32dfd985f65ad90919f93a88344f272010025ee618a19000000");
    const QByteArray zlib = QByteArray::fromHex("789cf32dfd985f65ad90919f93a88344f27201007d030893");
    const QByteArray crudo = QByteArray::fromHex("f32dfd985f65ad90919f93a88344f2720100");
    QTest::newRow("hasta el fin de la conexion") << ok + "\r\nabc" << QByteArray("abc");
    QTest::newRow("fin de la conexion, vacio") << ok + "\r\n" << QByteArray();
    QTest::newRow("HTTP 1.0") << QByteArray("HTTP/1.0 200 OK\r\n\r\nabc") << QByteArray("abc");
    QTest::newRow("sin frase") << QByteArray("HTTP/1.1 200\r\nContent-Length: 3\r\n\r\nabc")
                               << QByteArray("abc");
    QTest::newRow("solo saltos LF")
        << QByteArray("HTTP/1.1 200 OK\nContent-Length: 3\n\nabc") << QByteArray("abc");
    QTest::newRow("largo en minusculas")
        << ok + "content-length:3\r\n\r\nabcdef" << QByteArray("abc");
    QTest::newRow("bytes tras el largo")
        << ok + "Content-Length: 3\r\n\r\nabcHTTP/1.1 200 OK\r\n\r\nxyz" << QByteArray("abc");
    QTest::newRow("largo cero y bytes") << ok + "Content-Length: 0\r\n\r\nabc" << QByteArray();
    QTest::newRow("sin contenido") << QByteArray("HTTP/1.1 204 No Content\r\n\r\n") << QByteArray();
    QTest::newRow("tras un aviso")
        << "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 Hints\r\nLocation: /x\r\n\r\n" + ok
               + "Content-Length: 3\r\n\r\nabc"
        << QByteArray("abc");
    QTest::newRow("por trozos")
        << ok + "Transfer-Encoding: chunked\r\n\r\n3\r\nabc\r\nA\r\n0123456789\r\n0\r\n\r\n"
        << QByteArray("abc0123456789");
    QTest::newRow("por trozos, con adornos")
        << ok
               + "transfer-encoding: Chunked\r\n\r\n003;x=\"y\"\r\na\r\n\r\n0\r\nX-Mas: "
                 "1\r\n\r\nsobra"
        << QByteArray("a\r\n");
    QTest::newRow("por trozos, vacio") << ok + "Transfer-Encoding: chunked\r\n\r\n0\r\n\r\n"
                                       << QByteArray();
    QTest::newRow("gzip con largo")
        << ok + "Content-Encoding: gzip\r\nContent-Length: 36\r\n\r\n" + gzip << frase;
    QTest::newRow("gzip hasta el fin") << ok + "Content-Encoding: gzip\r\n\r\n" + gzip << frase;
    QTest::newRow("gzip por trozos")
        << ok + "Content-Encoding: gzip\r\nTransfer-Encoding: chunked\r\n\r\n14\r\n" + gzip.left(20)
               + "\r\n10\r\n" + gzip.mid(20) + "\r\n0\r\n\r\n"
        << frase;
    QTest::newRow("deflate") << ok + "Content-Encoding: deflate\r\nContent-Length: 24\r\n\r\n"
                                    + zlib
                             << frase;
    QTest::newRow("deflate sin envoltura")
        << ok + "Content-Encoding: deflate\r\nContent-Length: 18\r\n\r\n" + crudo << frase;
    QTest::newRow("sin compresion, dicho")
        << ok + "Content-Encoding: identity\r\nContent-Length: 3\r\n\r\nabc" << QByteArray("abc");
    QTest::newRow("gzip de otra letra") << ok + "content-encoding:\t GZip \r\n\r\n" + gzip << frase;
    QTest::newRow("x-gzip") << ok + "Content-Encoding: x-gzip\r\n\r\n" + gzip << frase;
    QTest::newRow("gzip con envoltura de deflate")
        << ok + "Content-Encoding: gzip\r\n\r\n" + zlib << frase;
    QTest::newRow("gzip sin un byte") << ok + "Content-Encoding: gzip\r\nContent-Length: 0\r\n\r\n"
                                      << QByteArray();
    QTest::newRow("deflate sin un byte") << ok + "Content-Encoding: deflate\r\n\r\n"
                                         << QByteArray();
    QTest::newRow("gzip de nada") << ok + "Content-Encoding: gzip\r\n\r\n"
                                         + QByteArray::fromHex(
                                             "1f8b080000000000020303000000000000000000")
                                  << QByteArray();
    QTest::newRow("deflate sin envoltura y con cola")
        << ok + "Content-Encoding: deflate\r\n\r\n" + crudo + "abcd" << frase;
    QTest::newRow("deflate sin envoltura, byte a byte")
        << ok + "Content-Encoding: deflate\r\nTransfer-Encoding: chunked\r\n\r\n" + porBytes(crudo)
        << frase;
    QTest::newRow("gzip byte a byte")
        << ok + "Content-Encoding: gzip\r\nTransfer-Encoding: chunked\r\n\r\n" + porBytes(gzip)
        << frase;
    QTest::newRow("gzip en el transporte")
        << ok + "Transfer-Encoding: gzip, chunked\r\n\r\n24\r\n" + gzip + "\r\n0\r\n\r\n"
        << frase;
    QTest::newRow("deflate, y gzip encima")
        << ok + "Content-Encoding: deflate, gzip\r\n\r\n" + zlibEnGzip << frase;
    QTest::newRow("deflate, y gzip encima, en dos lineas")
        << ok + "Content-Encoding: deflate\r\nContent-Encoding: identity,gzip\r\n\r\n" + zlibEnGzip
        << frase;
    QTest::newRow("cinco sin efecto")
        << ok + "Content-Encoding: identity,none,,identity, none,identity\r\n\r\nabc"
        << QByteArray("abc");
    QTest::newRow("compresion sin nombre")
        << ok + "Content-Encoding: ,\r\n\r\nabc" << QByteArray("abc");
    QTest::newRow("compresion que no se pidio, sin un byte")
        << ok + "Content-Encoding: x-otra\r\nContent-Length: 0\r\n\r\n"
        << QByteArray();
    QTest::newRow("compresion en un aviso")
        << "HTTP/1.1 103 Hints\r\nContent-Encoding: gzip\r\n\r\n" + ok
               + "Content-Length: 3\r\n\r\nabc"
        << QByteArray("abc");
    QTest::newRow("lo que parece otra respuesta tras el cuerpo")
        << ok + "Transfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\nHTTP/1.1: 200\r\n\r\n"
        << QByteArray("abc");
    QTest::newRow("compresion tras el cuerpo")
        << ok
               + "Transfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\n"
                 "Content-Encoding: gzip\r\n\r\n"
        << QByteArray("abc");
    QTest::newRow("error comprimido")
        << "HTTP/1.1 500 Mal\r\nContent-Encoding: gzip\r\nContent-Length: 36\r\n\r\n" + gzip
        << frase;
    QTest::newRow("grande") << ok + "Content-Length: 3000000\r\n\r\n" + QByteArray(3000000, '\xD1')
                            << QByteArray(3000000, '\xD1');
}

void tst_HttpRespuestas::respuesta_cuerpo()
{
    QFETCH(QByteArray, respuesta);
    QFETCH(QByteArray, cuerpo);
    const ServidorGuion guion(respuesta);
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/x", cabecerasTexto), cuerpo);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QCOMPARE(http.getArchivo(guion.base() + "/y", destino), !respuesta.startsWith("HTTP/1.1 500"));
    QCOMPARE(destino.data(), cuerpo);
    QCOMPARE(guion.destinos(), (QList<QByteArray>{"/x", "/y"}));
}

void tst_HttpRespuestas::respuesta_rota_data()
{
    QTest::addColumn<QByteArray>("respuesta");
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray gzip = QByteArray::fromHex(
        "1f8b08000000000002fff32dfd985f65ad90919f93a88344f272010025ee618a19000000");
    QTest::newRow("nada") << QByteArray();
    QTest::newRow("texto sin HTTP") << QByteArray("<html>hola</html>");
    QTest::newRow("otro protocolo") << QByteArray("SSH-2.0-x\r\n\r\n");
    QTest::newRow("TLS") << QByteArray::fromHex("150301000202280d0a0d0a");
    QTest::newRow("estado sin cifras") << QByteArray("HTTP/1.1 OK\r\n\r\nabc");
    QTest::newRow("primera linea cortada") << QByteArray("HTTP/1.1 20");
    QTest::newRow("cabecera cortada en una linea") << ok + "Content-Le";
    QTest::newRow("cabecera cortada entre lineas") << ok + "Content-Length: 0\r\n";
    QTest::newRow("solo un aviso") << QByteArray("HTTP/1.1 100 Continue\r\n\r\n");
    QTest::newRow("falta un byte") << ok + "Content-Length: 4\r\n\r\nabc";
    QTest::newRow("falta todo") << ok + "Content-Length: 4\r\n\r\n";
    QTest::newRow("largo negativo") << ok + "Content-Length: -1\r\n\r\nabc";
    QTest::newRow("largo sin cifras") << ok + "Content-Length: tres\r\n\r\nabc";
    QTest::newRow("trozo cortado") << ok + "Transfer-Encoding: chunked\r\n\r\n4\r\nabc";
    QTest::newRow("sin el ultimo trozo") << ok + "Transfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n";
    QTest::newRow("sin el fin del ultimo trozo")
        << ok + "Transfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\n";
    QTest::newRow("trozo sin largo") << ok + "Transfer-Encoding: chunked\r\n\r\nxyz\r\n0\r\n\r\n";
    QTest::newRow("gzip que no lo es")
        << ok + "Content-Encoding: gzip\r\nContent-Length: 3\r\n\r\nabc";
    QTest::newRow("gzip estropeado")
        << ok + "Content-Encoding: gzip\r\n\r\n" + QByteArray(gzip).replace(14, 2, "\xFF\xFF");
    QTest::newRow("gzip cortado con largo")
        << ok + "Content-Encoding: gzip\r\nContent-Length: 36\r\n\r\n" + gzip.left(30);
    const QByteArray zlib = QByteArray::fromHex("789cf32dfd985f65ad90919f93a88344f27201007d030893");
    const QByteArray crudo = QByteArray::fromHex("f32dfd985f65ad90919f93a88344f2720100");
    // Streams that break off, and a reply that is whole in every other regard.
    const auto cortada = [&](const char *nombre, const QByteArray &codificacion,
                             const QByteArray &cuerpo) {
        const QByteArray cabeza = ok + "Content-Encoding: " + codificacion + "\r\n";
        const QByteArray largo = QByteArray::number(cuerpo.size());
        QTest::addRow("%s, con su largo", nombre)
            << cabeza + "Content-Length: " + largo + "\r\n\r\n" + cuerpo;
        QTest::addRow("%s, hasta el fin", nombre) << cabeza + "\r\n" + cuerpo;
        QTest::addRow("%s, por trozos", nombre)
            << cabeza + "Transfer-Encoding: chunked\r\n\r\n" + porBytes(cuerpo);
    };
    cortada("gzip a medias", "gzip", gzip.left(20));
    cortada("gzip, un byte", "gzip", gzip.left(1));
    cortada("gzip sin su suma", "gzip", gzip.chopped(8));
    cortada("gzip, falta un byte", "gzip", gzip.chopped(1));
    cortada("x-gzip a medias", "x-gzip", gzip.left(20));
    cortada("deflate a medias", "deflate", zlib.left(12));
    cortada("deflate, un byte", "deflate", zlib.left(1));
    cortada("deflate sin su suma", "deflate", zlib.chopped(4));
    cortada("deflate sin envoltura a medias", "deflate", crudo.left(12));
    cortada("deflate sin envoltura, falta un byte", "deflate", crudo.chopped(1));
    cortada("gzip de dos, a medias", "deflate, gzip", zlibEnGzip.chopped(12));
    cortada("gzip entero de un deflate a medias", "deflate, gzip", zlibCortadoEnGzip);
    QTest::newRow("gzip en el transporte, a medias")
        << ok + "Transfer-Encoding: gzip, chunked\r\n\r\n14\r\n" + gzip.left(20) + "\r\n0\r\n\r\n";
    QTest::newRow("error a medias")
        << "HTTP/1.1 500 Mal\r\nContent-Encoding: gzip\r\n\r\n" + gzip.left(20);
    // What comes after a stream's own end.
    QTest::newRow("gzip y otro gzip") << ok + "Content-Encoding: gzip\r\n\r\n" + gzip + gzip;
    QTest::newRow("gzip y basura") << ok + "Content-Encoding: gzip\r\n\r\n" + gzip + "xyz";
    QTest::newRow("gzip y basura aparte")
        << ok + "Content-Encoding: gzip\r\nTransfer-Encoding: chunked\r\n\r\n"
               + porBytes(gzip + "x");
    QTest::newRow("deflate y un byte") << ok + "Content-Encoding: deflate\r\n\r\n" + zlib + "x";
    QTest::newRow("deflate sin envoltura y cinco bytes")
        << ok + "Content-Encoding: deflate\r\n\r\n" + crudo + "abcde";
    QTest::newRow("gzip con otra suma")
        << ok + "Content-Encoding: gzip\r\n\r\n" + QByteArray(gzip).replace(28, 1, "\x01");
    QTest::newRow("gzip sin envoltura") << ok + "Content-Encoding: gzip\r\n\r\n" + crudo;
    QTest::newRow("deflate en envoltura de gzip")
        << ok + "Content-Encoding: deflate\r\n\r\n" + gzip;
    QTest::newRow("seis compresiones")
        << ok + "Content-Encoding: identity,none,identity,none,identity,none\r\n\r\nabc";
    QTest::newRow("compresion que no se pidio")
        << ok + "Content-Encoding: x-otra\r\nContent-Length: 3\r\n\r\nabc";
}

void tst_HttpRespuestas::respuesta_rota()
{
    QFETCH(QByteArray, respuesta);
    const ServidorGuion guion(respuesta);
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/x", cabecerasTexto), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(guion.base() + "/y", destino));
    QCOMPARE(guion.destinos(), (QList<QByteArray>{"/x", "/y"})); // each sent once
}

QTEST_GUILESS_MAIN(tst_HttpRespuestas)
#include "tst_HttpRespuestas.moc"
