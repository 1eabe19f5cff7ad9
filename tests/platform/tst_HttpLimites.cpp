// SPDX-License-Identifier: MIT
// No wait is without an end, and no body without a bound.
#include "esperasHttp.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QTest>

#include <atomic>

using namespace std::chrono_literals;
using Charla = ServidorGuion::Charla;

namespace {

HttpClient::Limites conTexto(qint64 bytes)
{
    HttpClient::Limites limites;
    limites.texto = bytes;
    return limites;
}

} // namespace

class tst_HttpLimites : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { sinProxy(); }
    void cuerpoEnElLimite_llega_data();
    void cuerpoEnElLimite_llega();
    void cuerpoSobreElLimite_falla_data();
    void cuerpoSobreElLimite_falla();
    void cuerpoSobreElLimite_noAtaneADescargas();

    void silencio_data();
    void silencio();
    void compresionesUnasEnOtras_noCrecenSinMedida_data();
    void compresionesUnasEnOtras_noCrecenSinMedida();
    void lineasTrasElCuerpo_acotadas();
    void goteo_noEsSilencio();
    void silencioRepetido_elClienteSigue();
    void saludoQueNoLlega_seAbandona_data();
    void saludoQueNoLlega_seAbandona();
};

// Ten bytes, or more, in each way in which a body can come.
void tst_HttpLimites::cuerpoEnElLimite_llega_data()
{
    QTest::addColumn<QByteArray>("respuesta");
    QTest::newRow("con largo") << QByteArray(
        "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n0123456789");
    QTest::newRow("hasta el fin") << QByteArray("HTTP/1.1 200 OK\r\n\r\n0123456789");
    QTest::newRow("por trozos") << QByteArray(
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
        "5\r\n01234\r\n5\r\n56789\r\n0\r\n\r\n");
}

void tst_HttpLimites::cuerpoEnElLimite_llega()
{
    QFETCH(QByteArray, respuesta);
    const ServidorGuion guion(respuesta);
    HttpClient http(HttpClient::autoridadesDelSistema(), conTexto(10));
    QCOMPARE(http.get(guion.base() + "/", {}), QByteArray("0123456789"));
}

void tst_HttpLimites::cuerpoSobreElLimite_falla_data()
{
    QTest::addColumn<QByteArray>("respuesta");
    QTest::newRow("con largo") << QByteArray(
        "HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\n0123456789a");
    QTest::newRow("hasta el fin") << QByteArray("HTTP/1.1 200 OK\r\n\r\n0123456789a");
    QTest::newRow("por trozos") << QByteArray(
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
        "5\r\n01234\r\n6\r\n56789a\r\n0\r\n\r\n");
    QTest::newRow("un error") << QByteArray("HTTP/1.1 500 Mal\r\n\r\n0123456789a");
    // 29 bytes that decode to a thousand.
    QTest::newRow("comprimido")
        << "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 29\r\n\r\n"
               + QByteArray::fromHex("1f8b0800000000000203aba81805a360140c770000e6c9413be8030000");
}

void tst_HttpLimites::cuerpoSobreElLimite_falla()
{
    QFETCH(QByteArray, respuesta);
    const ServidorGuion guion(respuesta);
    HttpClient http(HttpClient::autoridadesDelSistema(),
                    conTexto(respuesta.contains("gzip") ? 999 : 10));
    QCOMPARE(http.get(guion.base() + "/", {}), std::nullopt);
    QCOMPARE(guion.conexiones(), 1);
}

void tst_HttpLimites::cuerpoSobreElLimite_noAtaneADescargas()
{
    const ServidorGuion guion("HTTP/1.1 200 OK\r\n\r\n0123456789a");
    HttpClient http(HttpClient::autoridadesDelSistema(), conTexto(10));
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.getArchivo(guion.base() + "/", destino));
    QCOMPARE(destino.data(), QByteArray("0123456789a"));
}

void tst_HttpLimites::silencio_data()
{
    QTest::addColumn<QByteArray>("principio");
    QTest::newRow("nada") << QByteArray();
    QTest::newRow("media primera linea") << QByteArray("HTTP/1.1 2");
    QTest::newRow("media cabecera") << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n");
    QTest::newRow("cabecera entera") << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n");
    QTest::newRow("medio cuerpo") << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nab");
    QTest::newRow("cuerpo sin fin dicho") << QByteArray("HTTP/1.1 200 OK\r\n\r\nab");
    QTest::newRow("falta el ultimo trozo")
        << QByteArray("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n");
}

void tst_HttpLimites::silencio()
{
    QFETCH(QByteArray, principio);
    std::atomic<int> cerradas = 0;
    const ServidorGuion guion([&](Charla &charla) {
        charla.leerCabeza();
        charla.enviar(principio);
        cerradas += charla.clienteCierra(plazo) ? 1 : 0;
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conSilencio(200ms));
    QElapsedTimer reloj;
    reloj.start();
    QCOMPARE(http.get(guion.base() + "/a", {}), std::nullopt);
    QVERIFY(reloj.elapsed() >= 199);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(guion.base() + "/b", destino));
    QTRY_COMPARE(cerradas, 2); // given up is given up
    QCOMPARE(guion.conexiones(), 2);
}

// Streams that hold nothing but more of themselves: what comes out at the end is little, or
// nothing at all, and what is made of it on the way is not.
void tst_HttpLimites::compresionesUnasEnOtras_noCrecenSinMedida_data()
{
    QTest::addColumn<QByteArray>("codificaciones");
    QTest::addColumn<QByteArray>("cuerpo");
    // qCompress puts the length before a zlib stream, which is what "deflate" names.
    const auto comprimido = [](const QByteArray &bytes) {
        return qCompress(bytes, 9).mid(4);
    };
    QByteArray vacio("\x78\x01"); // blocks without a byte in them
    for (int i = 0; i < 8 * 1024 * 1024; ++i)
        vacio.append("\0\0\0\xff\xff", 5);
    vacio.append("\x01\0\0\xff\xff\0\0\0\x01", 9);
    QTest::newRow("nothing at the end")
        << QByteArray("deflate, deflate, deflate") << comprimido(comprimido(vacio));
    QTest::newRow("much at the end") << QByteArray("deflate, deflate")
                                     << comprimido(comprimido(QByteArray(48 * 1024 * 1024, 'x')));
}

void tst_HttpLimites::compresionesUnasEnOtras_noCrecenSinMedida()
{
    QFETCH(QByteArray, codificaciones);
    QFETCH(QByteArray, cuerpo);
    QVERIFY(cuerpo.size() < 16 * 1024); // one piece
    const ServidorGuion guion("HTTP/1.1 200 OK\r\nContent-Encoding: " + codificaciones + "\r\n\r\n"
                              + cuerpo);
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/a", {}), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(guion.base() + "/b", destino));
}

void tst_HttpLimites::lineasTrasElCuerpo_acotadas()
{
    const ServidorGuion guion([](Charla &charla) {
        charla.leerCabeza();
        charla.enviar("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nhola\r\n0\r\n");
        // Many times the bound; who takes them all has the body whole.
        for (int i = 0; i < 2000; ++i)
            charla.enviar("X-Mas: " + QByteArray(1000, 'm') + "\r\n");
        charla.enviar("\r\n");
        charla.terminar();
        charla.clienteCierra(plazo);
    });
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/a", {}), std::nullopt);
}

void tst_HttpLimites::goteo_noEsSilencio()
{
    const ServidorGuion guion([](Charla &charla) {
        charla.leerCabeza();
        // Headers and body together take longer than the limit.
        for (const char *trozo : {"HTTP/1.1 200 OK\r\n", "X-Uno: 1\r\n", "X-Dos: 2\r\n",
                                  "Content-Length: 5\r\n", "\r\n", "a", "b", "c", "d", "e"}) {
            std::this_thread::sleep_for(500ms);
            charla.enviar(trozo);
        }
        charla.clienteCierra();
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conSilencio(4000ms));
    QCOMPARE(http.get(guion.base() + "/a", {}), QByteArray("abcde"));
}

void tst_HttpLimites::silencioRepetido_elClienteSigue()
{
    const ServidorGuion guion([](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (!cabeza.contains("/muda"))
            charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
        charla.clienteCierra(plazo);
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conSilencio(3000ms));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(http.get(guion.base() + "/muda", {}), std::nullopt);
    QCOMPARE(http.get(guion.base() + "/a", {}), QByteArray("hola"));
}

void tst_HttpLimites::saludoQueNoLlega_seAbandona_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QByteArray>("direccion"); // empty: the mute server's own, encrypted
    QTest::newRow("del servicio") << QByteArray() << QByteArray();
    QTest::newRow("del proxy") << QByteArray("http_proxy")
                               << QByteArray("http://servicio.example/");
}

// A connection is made when the service can be asked, and not before: the limit for it counts, and
// no silence.
void tst_HttpLimites::saludoQueNoLlega_seAbandona()
{
    QFETCH(QByteArray, variable);
    QFETCH(QByteArray, direccion);
    std::atomic<bool> cerrada = false;
    const ServidorGuion mudo([&](Charla &charla) { cerrada = charla.clienteCierra(plazo); });
    if (!variable.isEmpty())
        qputenv(variable.constData(), mudo.base());
    else
        direccion = "https://127.0.0.1:" + QByteArray::number(mudo.puerto()) + "/";
    HttpClient::Limites limites;
    limites.conexion = 2s;
    limites.silencio = 1h;
    HttpClient http(HttpClient::autoridadesDelSistema(), limites);
    const auto respuesta = http.get(direccion, {});
    sinProxy();
    QCOMPARE(respuesta, std::nullopt);
    QTRY_VERIFY(cerrada);
}

QTEST_GUILESS_MAIN(tst_HttpLimites)
#include "tst_HttpLimites.moc"
