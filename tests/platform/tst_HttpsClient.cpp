// SPDX-License-Identifier: MIT
#include "ServidorGuion.h"
#include "Tunel.h"
#include "demostracion/ServicioDemo.h"
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <array>

#include <sys/inotify.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const HttpClient::Cabeceras cabecerasTexto = {{"Content-type", "application/x-www-form-urlencoded"},
                                              {"Content-length", "0"},
                                              {"Connection", "close"}};

const QByteArray consulta = "/querys/tessarin/tomarValor.php?idcolegio=123&campo=CDANE";
const QByteArray valor = "305001012345";

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

class tst_HttpsClient : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

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

    void falla_comoSinCifrar_data();
    void falla_comoSinCifrar();
    void servidorSinTls_falla();
    void anidada_ambasLlegan();

    void deHttpsAHttp_rechazada_data();
    void deHttpsAHttp_rechazada();
    void deHttpsAHttps_seSigue();
    void deHttpAHttps_seSigue();
    void deHttpAHttpsAHttp_rechazada();
    void haciaHttpsIlegible_noVaSinCifrar_data();
    void haciaHttpsIlegible_noVaSinCifrar();
    void direccionHttpsIlegible_noVaSinCifrar();

private:
    QString archivoDe(const QByteArray &pem, const QString &nombre) const;

    QTemporaryDir m_carpeta;
    ServicioDemo m_servicio{{}, ServicioDemo::Modo::Https};
    QByteArray m_base = m_servicio.base().toLatin1();
    int m_puerto = QUrl(m_servicio.base()).port();
    QString m_autoridad;
};

QString tst_HttpsClient::archivoDe(const QByteArray &pem, const QString &nombre) const
{
    QFile archivo(m_carpeta.filePath(nombre));
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(pem) != pem.size())
        qFatal("no file of authorities");
    return archivo.fileName();
}

void tst_HttpsClient::initTestCase()
{
    m_autoridad = archivoDe(m_servicio.autoridad(), u"autoridad.pem"_s);
}

void tst_HttpsClient::init()
{
    sinProxy();
    m_servicio.quitarFallas();
    m_servicio.olvidarPeticiones();
}

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
    for (const auto &[nombre, contenido] : variables)
        qputenv(nombre, contenido);
    HttpClient http(ajena);
    const auto respuesta = http.get(m_base + consulta, cabecerasTexto);
    for (const auto &[nombre, contenido] : variables)
        qunsetenv(nombre);
    QCOMPARE(respuesta, std::nullopt);
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

void tst_HttpsClient::falla_comoSinCifrar_data()
{
    QTest::addColumn<Falla>("falla");
    QTest::addColumn<std::optional<QByteArray>>("cuerpo");
    using Cuerpo = std::optional<QByteArray>;
    QTest::newRow("vacia") << Falla{Falla::Vacia} << Cuerpo("");
    QTest::newRow("estado 500") << Falla{Falla::Estado, "se rompio", 500} << Cuerpo("se rompio");
    QTest::newRow("cierra antes") << Falla{Falla::CierraAntes} << Cuerpo();
    QTest::newRow("cierra en medio") << Falla{Falla::CierraEnMedio} << Cuerpo();
    QTest::newRow("largo errado") << Falla{Falla::LargoErrado} << Cuerpo("305001");
    QTest::newRow("basura") << Falla{Falla::Basura} << Cuerpo();
    QTest::newRow("muda") << Falla{Falla::Muda} << Cuerpo();
}

void tst_HttpsClient::falla_comoSinCifrar()
{
    QFETCH(Falla, falla);
    QFETCH(std::optional<QByteArray>, cuerpo);
    HttpClient::Limites limites;
    limites.silencio = falla.clase == Falla::Muda ? 500ms : 120s;
    HttpClient http(m_autoridad, limites);
    m_servicio.fallar("CDANE", falla, 1);
    QCOMPARE(http.get(m_base + consulta, cabecerasTexto), cuerpo);
    if (falla.clase != Falla::Muda) // which may be given up before the greeting is over
        QCOMPARE(m_servicio.peticiones().size(), 1);
}

void tst_HttpsClient::servidorSinTls_falla()
{
    const ServidorGuion claro([](ServidorGuion::Charla &charla) {
        charla.leer(); // a greeting that it does not understand
        charla.enviar("HTTP/1.1 400 Que\r\n\r\nhola");
        charla.terminar();
        charla.clienteCierra();
    });
    HttpClient http(m_autoridad);
    QCOMPARE(http.get("https://127.0.0.1:" + QByteArray::number(claro.puerto()) + '/', {}),
             std::nullopt);
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

void tst_HttpsClient::deHttpsAHttp_rechazada_data()
{
    QTest::addColumn<QByteArray>("inicio");
    QTest::newRow("minusculas") << QByteArray("https://");
    QTest::newRow("mayusculas") << QByteArray("HTTPS://");
}

void tst_HttpsClient::deHttpsAHttp_rechazada()
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

void tst_HttpsClient::deHttpsAHttps_seSigue()
{
    m_servicio.fallar("/vieja", {Falla::Redireccion, m_base + consulta});
    m_servicio.fallar("/mayuscula", {Falla::Redireccion, "HTTPS://" + m_base.mid(8) + consulta});
    HttpClient http(m_autoridad);
    QCOMPARE(http.get(m_base + "/vieja", cabecerasTexto), valor);
    QCOMPARE(http.get(m_base + "/mayuscula", cabecerasTexto), valor);
}

void tst_HttpsClient::deHttpAHttps_seSigue()
{
    const ServidorGuion claro("HTTP/1.1 301 Otra\r\nLocation: " + m_base + consulta + "\r\n\r\n");
    HttpClient http(m_autoridad);
    QCOMPARE(http.get(claro.base() + "/vieja", cabecerasTexto), valor);
}

// Once the way has become a safe one, it stays so.
void tst_HttpsClient::deHttpAHttpsAHttp_rechazada()
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
void tst_HttpsClient::haciaHttpsIlegible_noVaSinCifrar_data()
{
    QTest::addColumn<QByteArray>("lugar"); // PUERTO stands for the plain server's
    QTest::newRow("minusculas") << QByteArray("https:PUERTO/x");
    QTest::newRow("mayusculas") << QByteArray("HTTPS:PUERTO/x");
    QTest::newRow("con consulta") << QByteArray("https:PUERTO?x");
}

void tst_HttpsClient::haciaHttpsIlegible_noVaSinCifrar()
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

void tst_HttpsClient::direccionHttpsIlegible_noVaSinCifrar()
{
    const ServidorGuion claro("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
    qputenv("http_proxy", claro.base());
    HttpClient http(m_autoridad);
    for (const QByteArray protocolo : {"https:", "HTTPS:"}) {
        QCOMPARE(http.get(protocolo + QByteArray::number(claro.puerto()) + "/x", {}), std::nullopt);
        QCOMPARE(http.get(protocolo + "servicio/x", {}), std::nullopt);
    }
    QCOMPARE(claro.conexiones(), 0);
}

QTEST_MAIN(tst_HttpsClient)
#include "tst_HttpsClient.moc"
