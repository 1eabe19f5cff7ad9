// SPDX-License-Identifier: MIT
#include "ServidorGuion.h"
#include "consultaEscuela.h"
#include "demostracion/ServicioDemo.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QTest>

using Charla = ServidorGuion::Charla;

namespace {

QByteArray redireccion(const QByteArray &lugar, int estado = 302, const QByteArray &cuerpo = {})
{
    return "HTTP/1.1 " + QByteArray::number(estado) + " Otra\r\nLocation: " + lugar
           + "\r\nContent-Length: " + QByteArray::number(cuerpo.size()) + "\r\n\r\n" + cuerpo;
}

// Plays the replies one after the other, the last one for good.
ServidorGuion::Guion porTurnos(const QList<QByteArray> &respuestas)
{
    return [respuestas](Charla &charla) {
        charla.leerCabeza();
        charla.enviar(respuestas.at(std::min<qsizetype>(charla.numero, respuestas.size() - 1)));
        charla.terminar();
        charla.clienteCierra();
    };
}

const QByteArray final = "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nfinal";

} // namespace

class tst_HttpRedirecciones : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void estado_seSigue_data();
    void estado_seSigue();
    void estado_noSeSigue_data();
    void estado_noSeSigue();
    void sinLugar_esRespuesta_data();
    void sinLugar_esRespuesta();
    void diez_seSiguen();
    void once_fallan();
    void cadaSalto_suDestino_data();
    void cadaSalto_suDestino();
    void cadaSalto_lasMismasCabeceras();
    void otroServidor_seSigue();
    void galletaDelSalto_va();
    void cuerpoDelSalto_noEsDeNadie();
    void cuerpoDelSalto_noCuentaEnElFinal();
    void cuerpoDelSaltoSobreElLimite_falla_data();
    void cuerpoDelSaltoSobreElLimite_falla();
    void saltoQueSeCorta_falla_data();
    void saltoQueSeCorta_falla();
    void haciaError_segunSeaTextoODescarga();
    void haciaNadie_falla();
    void haciaOtroProtocolo_falla_data();
    void haciaOtroProtocolo_falla();
    void servicioDeVerdad_seSigue();
};

void tst_HttpRedirecciones::initTestCase()
{
    sinProxy();
}

void tst_HttpRedirecciones::estado_seSigue_data()
{
    QTest::addColumn<int>("estado");
    for (const int estado : {301, 302, 303, 307, 308})
        QTest::addRow("%d", estado) << estado;
}

void tst_HttpRedirecciones::estado_seSigue()
{
    QFETCH(int, estado);
    const ServidorGuion guion(porTurnos({redireccion("/otra", estado), final}));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/una", cabecerasTexto), QByteArray("final"));
    QCOMPARE(guion.destinos(), (QList<QByteArray>{"/una", "/otra"}));
    QVERIFY(guion.cabezas().last().startsWith("GET /otra HTTP/1.1\r\n"));

    const ServidorGuion deArchivo(porTurnos({redireccion("/otra", estado), final}));
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.getArchivo(deArchivo.base() + "/una", destino));
    QCOMPARE(destino.data(), QByteArray("final"));
}

void tst_HttpRedirecciones::estado_noSeSigue_data()
{
    QTest::addColumn<int>("estado");
    for (const int estado : {200, 201, 300, 305, 306, 400, 503})
        QTest::addRow("%d", estado) << estado;
}

void tst_HttpRedirecciones::estado_noSeSigue()
{
    QFETCH(int, estado);
    const ServidorGuion guion(porTurnos({redireccion("/otra", estado, "esta"), final}));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/una", {}), QByteArray("esta"));
    QCOMPARE(guion.conexiones(), 1);
}

void tst_HttpRedirecciones::sinLugar_esRespuesta_data()
{
    QTest::addColumn<QByteArray>("cabecera");
    QTest::newRow("ninguna") << QByteArray();
    QTest::newRow("vacia") << QByteArray("Location:\r\n");
    QTest::newRow("en blanco") << QByteArray("Location:   \r\n");
}

void tst_HttpRedirecciones::sinLugar_esRespuesta()
{
    QFETCH(QByteArray, cabecera);
    const ServidorGuion guion("HTTP/1.1 302 Found\r\n" + cabecera + "\r\ncuerpo");
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/una", {}), QByteArray("cuerpo"));
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.getArchivo(guion.base() + "/una", destino));
    QCOMPARE(destino.data(), QByteArray("cuerpo"));
    QCOMPARE(guion.conexiones(), 2);
}

void tst_HttpRedirecciones::diez_seSiguen()
{
    QList<QByteArray> respuestas;
    for (int i = 1; i <= 10; ++i)
        respuestas << redireccion("/" + QByteArray::number(i));
    const ServidorGuion guion(porTurnos(respuestas << final));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/0", {}), QByteArray("final"));
    QCOMPARE(guion.destinos(), (QList<QByteArray>{"/0", "/1", "/2", "/3", "/4", "/5", "/6", "/7",
                                                  "/8", "/9", "/10"}));
}

void tst_HttpRedirecciones::once_fallan()
{
    const ServidorGuion guion(porTurnos({redireccion("/circulo")}));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/", {}), std::nullopt);
    QCOMPARE(guion.conexiones(), 11);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(guion.base() + "/", destino));
    QCOMPARE(guion.conexiones(), 22);
}

void tst_HttpRedirecciones::cadaSalto_suDestino_data()
{
    QTest::addColumn<QByteArray>("lugar"); // BASE stands for the server
    QTest::addColumn<QByteArray>("destino");
    QTest::newRow("desde la raiz") << QByteArray("/x/y?z=1") << QByteArray("/x/y?z=1");
    QTest::newRow("entera") << QByteArray("BASE/x/y?z=1") << QByteArray("/x/y?z=1");
    QTest::newRow("entera sin ruta") << QByteArray("BASE") << QByteArray("/");
    QTest::newRow("entera sin ruta, con consulta") << QByteArray("BASE?z=1") << QByteArray("/?z=1");
    QTest::newRow("relativa") << QByteArray("y.html") << QByteArray("/dir/y.html");
    QTest::newRow("un nivel arriba") << QByteArray("../y.html") << QByteArray("/y.html");
    QTest::newRow("solo consulta") << QByteArray("?z=1") << QByteArray("/dir/una?z=1");
    QTest::newRow("sin protocolo") << QByteArray("//127.0.0.1:PUERTO/y") << QByteArray("/y");
    QTest::newRow("fragmento") << QByteArray("/y#parte") << QByteArray("/y");
    QTest::newRow("fragmento tras la consulta")
        << QByteArray("/y?z=1#parte?b") << QByteArray("/y?z=1");
    QTest::newRow("entera con fragmento") << QByteArray("BASE/y#parte") << QByteArray("/y");
    QTest::newRow("ya escrita") << QByteArray("/a%20b%C1?c=%26") << QByteArray("/a%20b%C1?c=%26");
    QTest::newRow("blanco en la ruta") << QByteArray("/a b") << QByteArray("/a%20b");
    QTest::newRow("blanco en la consulta") << QByteArray("/y?c=a b") << QByteArray("/y?c=a%20b");
    QTest::newRow("acento") << QByteArray("/\xC1lgebra") << QByteArray("/%C1lgebra");
    QTest::newRow("acento en la consulta") << QByteArray("/y?t=\xC1") << QByteArray("/y?t=%C1");
    QTest::newRow("los que no caben")
        << QByteArray("/a\"<>^`{|}") << QByteArray("/a%22%3C%3E%5E%60%7B%7C%7D");
    QTest::newRow("los que quedan")
        << QByteArray("/!$&'()*+,-.:;=@[]_~") << QByteArray("/!$&'()*+,-.:;=@[]_~");
    QTest::newRow("barras dobles") << QByteArray("/a//b") << QByteArray("/a//b");
}

void tst_HttpRedirecciones::cadaSalto_suDestino()
{
    QFETCH(QByteArray, lugar);
    QFETCH(QByteArray, destino);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray servidor = charla.leerCabeza().split('\n').value(1).trimmed().mid(6);
        QByteArray adonde = lugar;
        adonde.replace("BASE", "http://" + servidor);
        adonde.replace("PUERTO", servidor.split(':').last());
        charla.enviar(charla.numero == 0 ? redireccion(adonde) : final);
        charla.terminar();
        charla.clienteCierra();
    });
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/dir/una?vieja=1", cabecerasTexto), QByteArray("final"));
    QCOMPARE(guion.destinos(), (QList<QByteArray>{"/dir/una?vieja=1", destino}));
}

void tst_HttpRedirecciones::cadaSalto_lasMismasCabeceras()
{
    const ServidorGuion guion(porTurnos({redireccion("/otra"), final}));
    HttpClient http;
    QVERIFY(http.get(guion.base() + "/una", cabecerasTexto));
    QByteArray esperada = guion.cabezas().first();
    QVERIFY(esperada.contains("\r\nContent-type: application/x-www-form-urlencoded\r\n"));
    QCOMPARE(guion.cabezas().last(), esperada.replace("GET /una ", "GET /otra "));
}

void tst_HttpRedirecciones::otroServidor_seSigue()
{
    const ServidorGuion segundo(final);
    const ServidorGuion primero(redireccion(segundo.base() + "/alla?a=1"));
    HttpClient http;
    QCOMPARE(http.get(primero.base() + "/aqui", {}), QByteArray("final"));
    QCOMPARE(segundo.destinos(), QList<QByteArray>{"/alla?a=1"});
    QVERIFY(segundo.cabezas().first().contains("\r\nHost: " + segundo.base().mid(7) + "\r\n"));
}

void tst_HttpRedirecciones::galletaDelSalto_va()
{
    const ServidorGuion guion(porTurnos({"HTTP/1.1 302 Found\r\nSet-Cookie: s=7; "
                                         "path=/\r\nLocation: /otra\r\nContent-Length: 0\r\n\r\n",
                                         final}));
    HttpClient http;
    QVERIFY(http.get(guion.base() + "/una", {}));
    QVERIFY(guion.cabezas().last().contains("\r\nCookie: s=7\r\n"));
}

void tst_HttpRedirecciones::cuerpoDelSalto_noEsDeNadie()
{
    const QList<QByteArray> respuestas = {redireccion("/otra", 301, "se ha mudado"), final};
    const ServidorGuion guion(porTurnos(respuestas));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/una", {}), QByteArray("final"));
    const ServidorGuion deArchivo(porTurnos(respuestas));
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.getArchivo(deArchivo.base() + "/una", destino));
    QCOMPARE(destino.data(), QByteArray("final"));
}

// Each reply of the way may be as long as the limit says.
void tst_HttpRedirecciones::cuerpoDelSalto_noCuentaEnElFinal()
{
    const ServidorGuion guion(porTurnos({redireccion("/otra", 302, "12345"), final}));
    HttpClient::Limites limites;
    limites.texto = 5;
    HttpClient http(HttpClient::autoridadesDelSistema(), limites);
    QCOMPARE(http.get(guion.base() + "/una", {}), QByteArray("final"));
}

void tst_HttpRedirecciones::cuerpoDelSaltoSobreElLimite_falla_data()
{
    QTest::addColumn<QByteArray>("salto");
    const QByteArray comienzo = "HTTP/1.1 302 Otra\r\nLocation: /otra\r\n";
    QTest::newRow("con largo") << comienzo + "Content-Length: 6\r\n\r\n123456";
    QTest::newRow("hasta el fin") << comienzo + "\r\n123456";
    QTest::newRow("por trozos")
        << comienzo + "Transfer-Encoding: chunked\r\n\r\n5\r\n12345\r\n1\r\n6\r\n0\r\n\r\n";
    // 29 bytes that decode to a thousand.
    QTest::newRow("comprimido")
        << comienzo + "Content-Encoding: gzip\r\nContent-Length: 29\r\n\r\n"
               + QByteArray::fromHex("1f8b0800000000000203aba81805a360140c770000e6c9413be8030000");
}

// Nobody's body, and yet it must not go on for ever; a download's neither.
void tst_HttpRedirecciones::cuerpoDelSaltoSobreElLimite_falla()
{
    QFETCH(QByteArray, salto);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        charla.enviar(cabeza.contains("/una") ? salto : final);
        charla.terminar();
        charla.clienteCierra();
    });
    HttpClient::Limites limites;
    limites.texto = salto.contains("gzip") ? 999 : 5;
    HttpClient http(HttpClient::autoridadesDelSistema(), limites);
    QCOMPARE(http.get(guion.base() + "/una", {}), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(guion.base() + "/una", destino));
    QCOMPARE(guion.destinos(), (QList<QByteArray>{"/una", "/una"}));
}

void tst_HttpRedirecciones::saltoQueSeCorta_falla_data()
{
    QTest::addColumn<QByteArray>("resto");
    QTest::newRow("antes de su largo") << QByteArray("Content-Length: 9\r\n\r\nabc");
    QTest::newRow("en su compresion")
        << "Content-Encoding: gzip\r\nContent-Length: 20\r\n\r\n"
               + QByteArray::fromHex("1f8b0800000000000203aba81805a360140c7700");
}

void tst_HttpRedirecciones::saltoQueSeCorta_falla()
{
    QFETCH(QByteArray, resto);
    const ServidorGuion guion(
        porTurnos({"HTTP/1.1 302 Found\r\nLocation: /otra\r\n" + resto, final}));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/una", {}), std::nullopt);
    QCOMPARE(guion.conexiones(), 1);
}

void tst_HttpRedirecciones::haciaError_segunSeaTextoODescarga()
{
    const ServidorGuion guion(porTurnos({redireccion("/otra"), "HTTP/1.1 404 No\r\n\r\nno hay"}));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/una", {}), QByteArray("no hay"));
    const ServidorGuion deArchivo(
        porTurnos({redireccion("/otra"), "HTTP/1.1 404 No\r\n\r\nno hay"}));
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(deArchivo.base() + "/una", destino));
    QCOMPARE(deArchivo.conexiones(), 2);
}

void tst_HttpRedirecciones::haciaNadie_falla()
{
    const QByteArray nadie = ServidorGuion(final).base(); // and gone again
    const ServidorGuion guion(redireccion(nadie + "/"));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/una", {}), std::nullopt);
    QCOMPARE(guion.conexiones(), 1);
}

void tst_HttpRedirecciones::haciaOtroProtocolo_falla_data()
{
    QTest::addColumn<QByteArray>("lugar");
    QTest::newRow("archivo") << QByteArray("file:///etc/hostname");
    QTest::newRow("ftp") << QByteArray("ftp://127.0.0.1/x");
    QTest::newRow("puerto imposible") << QByteArray("http://127.0.0.1:99999/");
}

void tst_HttpRedirecciones::haciaOtroProtocolo_falla()
{
    QFETCH(QByteArray, lugar);
    const ServidorGuion guion(redireccion(lugar));
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/una", {}), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(guion.base() + "/una", destino));
    QVERIFY(destino.data().isEmpty());
    QCOMPARE(guion.conexiones(), 2);
}

void tst_HttpRedirecciones::servicioDeVerdad_seSigue()
{
    ServicioDemo servicio;
    const QByteArray base = servicio.base().toLatin1();
    servicio.fallar("/vieja", {Falla::Redireccion,
                               base + "/querys/tessarin/tomarValor.php?idcolegio=123&campo=CDANE"});
    HttpClient http;
    QCOMPARE(http.get(base + "/vieja?x=1", cabecerasTexto), QByteArray("305001012345"));
    QCOMPARE(servicio.peticiones().size(), 2);
    QCOMPARE(servicio.peticiones().first().destino, QByteArray("/vieja?x=1"));
    QCOMPARE(servicio.peticiones().last().destino,
             QByteArray("/querys/tessarin/tomarValor.php?idcolegio=123&campo=CDANE"));
}

QTEST_MAIN(tst_HttpRedirecciones)
#include "tst_HttpRedirecciones.moc"
