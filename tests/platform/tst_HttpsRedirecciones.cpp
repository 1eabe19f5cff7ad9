// SPDX-License-Identifier: MIT
// From one protocol to the other: what has become safe stays so, and no address that cannot be read
// is asked in the clear.
#include "EscuelaHttps.h"
#include "ServidorGuion.h"
#include "consultaEscuela.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QTest>

class tst_HttpsRedirecciones : public QObject, EscuelaHttps {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }

    void deHttpsAHttp_rechazada_data();
    void deHttpsAHttp_rechazada();
    void deHttpsAHttps_seSigue();
    void deHttpAHttps_seSigue();
    void deHttpAHttpsAHttp_rechazada();
    void haciaHttpsIlegible_noVaSinCifrar_data();
    void haciaHttpsIlegible_noVaSinCifrar();
};

void tst_HttpsRedirecciones::deHttpsAHttp_rechazada_data()
{
    QTest::addColumn<QByteArray>("inicio");
    QTest::newRow("minusculas") << QByteArray("https://");
    QTest::newRow("mayusculas") << QByteArray("HTTPS://");
}

void tst_HttpsRedirecciones::deHttpsAHttp_rechazada()
{
    QFETCH(QByteArray, inicio);
    const ServidorGuion claro("HTTP/1.1 200 OK\r\n\r\nhola");
    m_servicio.fallar("/vieja", {Falla::Redireccion, claro.base() + "/nueva"});
    HttpClient http(m_autoridad);
    QCOMPARE(http.get(inicio + m_base.mid(8) + "/vieja", cabecerasTexto), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(inicio + m_base.mid(8) + "/vieja", destino));
    QCOMPARE(m_servicio.peticiones().size(), 2);
    QCOMPARE(claro.conexiones(), 0);
}

void tst_HttpsRedirecciones::deHttpsAHttps_seSigue()
{
    m_servicio.fallar("/vieja", {Falla::Redireccion, m_base + consulta});
    m_servicio.fallar("/mayuscula", {Falla::Redireccion, "HTTPS://" + m_base.mid(8) + consulta});
    HttpClient http(m_autoridad);
    QCOMPARE(http.get(m_base + "/vieja", cabecerasTexto), valor);
    QCOMPARE(http.get(m_base + "/mayuscula", cabecerasTexto), valor);
}

void tst_HttpsRedirecciones::deHttpAHttps_seSigue()
{
    const ServidorGuion claro("HTTP/1.1 301 Otra\r\nLocation: " + m_base + consulta + "\r\n\r\n");
    HttpClient http(m_autoridad);
    QCOMPARE(http.get(claro.base() + "/vieja", cabecerasTexto), valor);
}

// Once the way has become a safe one, it stays so.
void tst_HttpsRedirecciones::deHttpAHttpsAHttp_rechazada()
{
    const ServidorGuion fin("HTTP/1.1 200 OK\r\n\r\nhola");
    m_servicio.fallar("/medio", {Falla::Redireccion, fin.base() + "/"});
    const ServidorGuion principio("HTTP/1.1 302 Otra\r\nLocation: " + m_base + "/medio\r\n\r\n");
    HttpClient http(m_autoridad);
    QCOMPARE(http.get(principio.base() + "/", cabecerasTexto), std::nullopt);
    QCOMPARE(m_servicio.peticiones().size(), 1);
    QCOMPARE(fin.conexiones(), 0);
}

// An address that begins with https and cannot be read must not be guessed at: "https" is then
// taken for the name of a host, and asked in plain HTTP.
void tst_HttpsRedirecciones::haciaHttpsIlegible_noVaSinCifrar_data()
{
    QTest::addColumn<QByteArray>("lugar"); // PUERTO stands for the plain server's
    QTest::newRow("minusculas") << QByteArray("https:PUERTO/x");
    QTest::newRow("mayusculas") << QByteArray("HTTPS:PUERTO/x");
    QTest::newRow("con consulta") << QByteArray("https:PUERTO?x");
}

void tst_HttpsRedirecciones::haciaHttpsIlegible_noVaSinCifrar()
{
    QFETCH(QByteArray, lugar);
    const ServidorGuion claro("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
    // Stands in the way of whatever goes out in plain HTTP, whoever it is meant for.
    qputenv("http_proxy", claro.base());
    m_servicio.fallar("/vieja", {Falla::Redireccion,
                                 lugar.replace("PUERTO", QByteArray::number(claro.puerto()))});
    HttpClient http(m_autoridad);
    QCOMPARE(http.get(m_base + "/vieja", cabecerasTexto), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(m_base + "/vieja", destino));
    QCOMPARE(m_servicio.peticiones().size(), 2);
    QCOMPARE(claro.conexiones(), 0);
}

QTEST_MAIN(tst_HttpsRedirecciones)
#include "tst_HttpsRedirecciones.moc"
