// SPDX-License-Identifier: MIT
#include "EscuelaHttps.h"
#include "Tunel.h"
#include "consultaEscuela.h"
#include "escenario/VariablesIntactas.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QMap>
#include <QTest>
#include <QTimer>

#include <array>

#include <sys/inotify.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Of a TLS greeting (RFC 8446, 4.1), what is compared here.
constexpr int servidorPedido = 0;
constexpr int protocolosOfrecidos = 16;
constexpr int claveAnterior = 41; // a session taken up again
constexpr int versionesOfrecidas = 43;

qsizetype numero(const QByteArray &bytes, qsizetype donde, int cuantos)
{
    qsizetype n = 0;
    for (int i = 0; i < cuantos; ++i)
        n = n * 256 + static_cast<unsigned char>(bytes.at(donde + i));
    return n;
}

// The extensions of the greeting that a stream begins with, the client's or the server's.
QMap<int, QByteArray> extensiones(const QByteArray &flujo)
{
    QMap<int, QByteArray> resultado;
    if (flujo.size() < 50 || flujo.at(0) != 22)
        return resultado;
    const bool delCliente = flujo.at(5) == 1;
    qsizetype donde = 5 + 4 + 2 + 32;
    donde += 1 + numero(flujo, donde, 1); // session
    if (delCliente) {
        donde += 2 + numero(flujo, donde, 2); // cipher suites
        donde += 1 + numero(flujo, donde, 1); // compressions
    } else {
        donde += 3;
    }
    const qsizetype fin = donde + 2 + numero(flujo, donde, 2);
    donde += 2;
    while (donde + 4 <= qMin(fin, flujo.size())) {
        const qsizetype largo = numero(flujo, donde + 2, 2);
        resultado.insert(static_cast<int>(numero(flujo, donde, 2)), flujo.mid(donde + 4, largo));
        donde += 4 + largo;
    }
    return resultado;
}

} // namespace

class tst_HttpsClient : public QObject, EscuelaHttps {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }

    void autoridadPropia_verificada_data();
    void autoridadPropia_verificada();
    void peticion_bytesExactos();
    void otraAutoridad_rechazada_data();
    void otraAutoridad_rechazada();
    void certificadoFueraDeFecha_rechazado_data();
    void certificadoFueraDeFecha_rechazado();
    void variasPeticiones_autoridadesAbiertasUnaVez();
    void entorno_noApagaLaVerificacion();
    void otroNombre_rechazado();
    void porTunel_verificaElNombrePedido();

    void saludo_ofreceSoloLoPermitido();
    void segundaPeticion_reanudaLaSesion();
    void muchasPeticiones_todasReanudan();

    void anidada_reanudaLaMismaSesion();

    void servidorConTls_sinCifrarFalla();
    void anidada_ambasLlegan();
};

void tst_HttpsClient::autoridadPropia_verificada_data()
{
    QTest::addColumn<QByteArray>("servidor");
    QTest::newRow("direccion") << QByteArray("127.0.0.1");
    QTest::newRow("nombre") << QByteArray("localhost");
    QTest::newRow("nombre en mayusculas") << QByteArray("LOCALHOST");
}

void tst_HttpsClient::autoridadPropia_verificada()
{
    QFETCH(QByteArray, servidor);
    HttpClient http(m_autoridad);
    const QByteArray direccion =
        "https://" + servidor + ':' + QByteArray::number(m_puerto) + consulta;
    QCOMPARE(http.get(direccion, cabecerasTexto), valor);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.getArchivo(direccion, destino));
    QCOMPARE(destino.data(), valor);
    QCOMPARE(m_servicio.peticiones().size(), 2);
}

void tst_HttpsClient::peticion_bytesExactos()
{
    HttpClient http(m_autoridad);
    QVERIFY(http.get(m_base
                         + "/querys/tessarin/login.php?azar=1&user=ni\xF1"
                           "a b&pwd=#",
                     cabecerasTexto));
    QCOMPARE(m_servicio.peticiones().first().bytes,
             QByteArray("GET /querys/tessarin/login.php?azar=1&user=ni%F1a%20b&pwd=%23 HTTP/1.1\r\n"
                        "Host: "
                        + m_base.mid(8)
                        + "\r\n"
                          "User-Agent: Parvanel/4.0\r\n"
                          "Accept: */*\r\n"
                          "Accept-Encoding: gzip, deflate\r\n"
                          "Content-type: application/x-www-form-urlencoded\r\n"
                          "Content-length: 0\r\n"
                          "Connection: close\r\n"
                          "\r\n"));
}

void tst_HttpsClient::otraAutoridad_rechazada_data()
{
    QTest::addColumn<QString>("archivo");
    const ServicioDemo otro({}, ServicioDemo::Modo::Https);
    QTest::newRow("otra") << archivoDe(otro.autoridad(), u"otra.pem"_s);
    QTest::newRow("las del sistema") << HttpClient::autoridadesDelSistema();
    QTest::newRow("ninguna") << archivoDe({}, u"vacio.pem"_s);
    QTest::newRow("no es PEM") << archivoDe("hola", u"hola.pem"_s);
    QTest::newRow("no existe") << m_carpeta.filePath(u"nada.pem"_s);
    QTest::newRow("sin nombre") << QString();
}

void tst_HttpsClient::otraAutoridad_rechazada()
{
    QFETCH(QString, archivo);
    HttpClient http(archivo);
    QCOMPARE(http.get(m_base + consulta, cabecerasTexto), std::nullopt);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(m_base + consulta, destino));
    QCOMPARE(m_servicio.peticiones().size(), 0); // not a byte of the request was given away
}

void tst_HttpsClient::certificadoFueraDeFecha_rechazado_data()
{
    QTest::addColumn<ServicioDemo::Modo>("modo");
    QTest::addColumn<bool>("llega");
    QTest::newRow("vencido") << ServicioDemo::Modo::HttpsVencido << false;
    QTest::newRow("todavia no vale") << ServicioDemo::Modo::HttpsPorVenir << false;
    QTest::newRow("en su fecha") << ServicioDemo::Modo::Https << true;
}

void tst_HttpsClient::certificadoFueraDeFecha_rechazado()
{
    QFETCH(ServicioDemo::Modo, modo);
    QFETCH(bool, llega);
    const ServicioDemo otro({}, modo);
    const QByteArray direccion = otro.base().toLatin1() + consulta;
    HttpClient http(archivoDe(otro.autoridad(), u"fechas.pem"_s));
    QCOMPARE(http.get(direccion, cabecerasTexto).has_value(), llega);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QCOMPARE(http.getArchivo(direccion, destino), llega);
    QCOMPARE(otro.peticiones().size(), llega ? 2 : 0);
}

// Parsing the system's bundle takes longer than a whole request.
void tst_HttpsClient::variasPeticiones_autoridadesAbiertasUnaVez()
{
    m_servicio.fallar("externa", {Falla::Demora, {}, 0, 100ms});
    // Closings are watched too: the system makes one of two equal events in a row.
    const int vista = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    QVERIFY(
        ::inotify_add_watch(vista, QFile::encodeName(m_autoridad).constData(), IN_OPEN | IN_CLOSE)
        >= 0);
    HttpClient http(m_autoridad);
    QTimer::singleShot(0, this, [&] { http.get(m_base + consulta, cabecerasTexto); });
    QCOMPARE(http.get(m_base + consulta + "&externa", cabecerasTexto), valor);
    for (int i = 0; i < 3; ++i) {
        QBuffer destino;
        destino.open(QIODevice::WriteOnly);
        QVERIFY(http.getArchivo(m_base + consulta, destino));
    }
    QCOMPARE(m_servicio.peticiones().size(), 5);
    int aperturas = 0;
    alignas(inotify_event) std::array<char, 16384> sucesos;
    const ssize_t leidos = ::read(vista, sucesos.data(), sucesos.size());
    for (ssize_t donde = 0; donde < leidos;) {
        const auto *suceso = reinterpret_cast<const inotify_event *>(sucesos.data() + donde);
        aperturas += (suceso->mask & IN_OPEN) != 0 ? 1 : 0;
        donde += static_cast<ssize_t>(sizeof(inotify_event) + suceso->len);
    }
    ::close(vista);
    QCOMPARE(aperturas, 1);
}

void tst_HttpsClient::entorno_noApagaLaVerificacion()
{
    const ServicioDemo otro({}, ServicioDemo::Modo::Https);
    const QString ajena = archivoDe(otro.autoridad(), u"ajena.pem"_s);
    const QList<QPair<const char *, QByteArray>> variables = {
        {"SSL_CERT_FILE", m_autoridad.toLocal8Bit()},
        {"SSL_CERT_DIR", m_carpeta.path().toLocal8Bit()},
        {"CURL_CA_BUNDLE", m_autoridad.toLocal8Bit()}};
    const VariablesIntactas intactas{"SSL_CERT_FILE", "SSL_CERT_DIR", "CURL_CA_BUNDLE"};
    for (const auto &[nombre, contenido] : variables)
        qputenv(nombre, contenido);
    HttpClient http(ajena);
    QCOMPARE(http.get(m_base + consulta, cabecerasTexto), std::nullopt);
    QCOMPARE(m_servicio.peticiones().size(), 0);
}

void tst_HttpsClient::otroNombre_rechazado()
{
    const Tunel tunel(m_puerto);
    qputenv("https_proxy", tunel.direccion());
    HttpClient http(m_autoridad);
    for (const QByteArray nombre :
         {"servicio.example", "127.0.0.2", "localhost.example", "x.localhost"})
        QCOMPARE(http.get("https://" + nombre + consulta, cabecerasTexto), std::nullopt);
    QCOMPARE(m_servicio.peticiones().size(), 0);
}

void tst_HttpsClient::porTunel_verificaElNombrePedido()
{
    const Tunel tunel(m_puerto);
    qputenv("https_proxy", tunel.direccion());
    HttpClient http(m_autoridad);
    QCOMPARE(http.get("https://localhost" + consulta, cabecerasTexto), valor);
    QTRY_COMPARE(tunel.pasos().size(), 1);
    QCOMPARE(tunel.pasos().first().peticion, QByteArray("CONNECT localhost:443 HTTP/1.1\r\n"
                                                        "Host: localhost:443\r\n"
                                                        "User-Agent: Parvanel/4.0\r\n"
                                                        "Proxy-Connection: Keep-Alive\r\n"
                                                        "\r\n"));
    // Nobody on the way reads what is asked.
    QVERIFY(!tunel.pasos().first().delCliente.contains("tomarValor"));
    QVERIFY(!tunel.pasos().first().delServidor.contains(valor));
    QVERIFY(m_servicio.peticiones().first().bytes.contains("\r\nHost: localhost\r\n"));
}

void tst_HttpsClient::saludo_ofreceSoloLoPermitido()
{
    const Tunel tunel(m_puerto);
    qputenv("https_proxy", tunel.direccion());
    HttpClient http(m_autoridad);
    QCOMPARE(http.get("https://localhost" + consulta, cabecerasTexto), valor);
    QTRY_COMPARE(tunel.pasos().size(), 1);
    const auto ofrecidas = extensiones(tunel.pasos().first().delCliente);
    // TLS 1.3 and 1.2, and nothing older; HTTP 1.1, and nothing newer.
    QCOMPARE(ofrecidas.value(versionesOfrecidas), QByteArray::fromHex("0403040303"));
    QCOMPARE(ofrecidas.value(protocolosOfrecidos), QByteArray("\x00\x09\x08http/1.1", 11));
    QVERIFY(ofrecidas.value(servidorPedido).endsWith("localhost"));
}

void tst_HttpsClient::segundaPeticion_reanudaLaSesion()
{
    const Tunel tunel(m_puerto);
    qputenv("https_proxy", tunel.direccion());
    HttpClient http(m_autoridad);
    QCOMPARE(http.get("https://localhost" + consulta, cabecerasTexto), valor);
    QTRY_COMPARE(tunel.pasos().size(), 1);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(http.getArchivo("https://localhost" + consulta, destino));
    QCOMPARE(destino.data(), valor);
    QTRY_COMPARE(tunel.pasos().size(), 2);
    QVERIFY(!extensiones(tunel.pasos().first().delCliente).contains(claveAnterior));
    QVERIFY(extensiones(tunel.pasos().last().delCliente).contains(claveAnterior));
    QVERIFY(extensiones(tunel.pasos().last().delServidor).contains(claveAnterior));
}

void tst_HttpsClient::muchasPeticiones_todasReanudan()
{
    const Tunel tunel(m_puerto);
    qputenv("https_proxy", tunel.direccion());
    HttpClient http(m_autoridad);
    constexpr int cuantas = 20;
    for (int i = 0; i < cuantas; ++i)
        QCOMPARE(http.get("https://localhost" + consulta, cabecerasTexto), valor);
    QTRY_COMPARE(tunel.pasos().size(), cuantas);
    int reanudadas = 0;
    for (const Tunel::Paso &paso : tunel.pasos())
        reanudadas += extensiones(paso.delServidor).contains(claveAnterior) ? 1 : 0;
    QCOMPARE(reanudadas, cuantas - 1);
}

// The nested request goes out by a handle of its own. When both greet at once, one may find the
// session just being renewed by the other; without a shared one none ever finds it.
void tst_HttpsClient::anidada_reanudaLaMismaSesion()
{
    m_servicio.fallar("externa", {Falla::Demora, {}, 0, 100ms});
    bool reanudadas = false;
    for (int vez = 0; vez < 5 && !reanudadas; ++vez) {
        const Tunel tunel(m_puerto);
        qputenv("https_proxy", tunel.direccion());
        HttpClient http(m_autoridad);
        QCOMPARE(http.get("https://localhost" + consulta, cabecerasTexto), valor);
        QTRY_COMPARE(tunel.pasos().size(), 1);
        std::optional<QByteArray> interna;
        QTimer::singleShot(
            0, this, [&] { interna = http.get("https://localhost" + consulta, cabecerasTexto); });
        QCOMPARE(http.get("https://localhost" + consulta + "&externa", cabecerasTexto), valor);
        QCOMPARE(interna, valor);
        QTRY_COMPARE(tunel.pasos().size(), 3);
        reanudadas = extensiones(tunel.pasos().at(1).delCliente).contains(claveAnterior)
                     && extensiones(tunel.pasos().at(2).delCliente).contains(claveAnterior);
    }
    QVERIFY(reanudadas);
}

void tst_HttpsClient::servidorConTls_sinCifrarFalla()
{
    HttpClient http(m_autoridad);
    QCOMPARE(http.get("http://127.0.0.1:" + QByteArray::number(m_puerto) + consulta, {}),
             std::nullopt);
    QCOMPARE(m_servicio.peticiones().size(), 0);
}

void tst_HttpsClient::anidada_ambasLlegan()
{
    m_servicio.fallar("externa", {Falla::Demora, {}, 0, 100ms});
    HttpClient http(m_autoridad);
    std::optional<QByteArray> interna;
    QTimer::singleShot(0, this, [&] { interna = http.get(m_base + consulta, cabecerasTexto); });
    QCOMPARE(http.get(m_base + consulta + "&externa", cabecerasTexto), valor);
    QCOMPARE(interna, valor);
}

QTEST_MAIN(tst_HttpsClient)
#include "tst_HttpsClient.moc"
