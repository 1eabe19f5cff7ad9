// SPDX-License-Identifier: MIT
// This computer loses its way out for a while: a request waits for it, and only for that.
#include "RedPropia.h"
#include "ServidorGuion.h"
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <functional>
#include <thread>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Charla = ServidorGuion::Charla;
namespace orilla = RedPropia::otraOrilla;

namespace {

constexpr auto conexion = 60s;      // for all attempts together
constexpr auto muchoAntes = 30'000; // milliseconds: what fails at once has failed by then
QString motivoSinRed;               // empty: the network is the test's own

HttpClient::Limites conConexion(std::chrono::milliseconds tiempo)
{
    HttpClient::Limites limites;
    limites.conexion = tiempo;
    limites.reintento = 100ms;
    return limites;
}

ServidorGuion::Guion contesta(const QByteArray &cuerpo)
{
    return [cuerpo](Charla &charla) {
        charla.leerCabeza();
        charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(cuerpo.size())
                      + "\r\n\r\n" + cuerpo);
        charla.clienteCierra();
    };
}

// Answers every question of a name with "there is no such name".
class ServidorQueNiega {
public:
    ServidorQueNiega()
    {
        sockaddr_in donde = {};
        donde.sin_family = AF_INET;
        donde.sin_port = htons(53);
        donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_abierto = ::bind(m_zocalo, reinterpret_cast<sockaddr *>(&donde), sizeof donde) == 0;
        m_hilo = std::thread([this] { servir(); });
    }
    ~ServidorQueNiega()
    {
        m_fin = true;
        ::shutdown(m_zocalo, SHUT_RDWR);
        m_hilo.join();
        ::close(m_zocalo);
    }
    ServidorQueNiega(const ServidorQueNiega &) = delete;
    ServidorQueNiega &operator=(const ServidorQueNiega &) = delete;

    bool abierto() const { return m_abierto; }
    int preguntas() const { return m_preguntas; }

private:
    void servir()
    {
        while (!m_fin) {
            std::array<char, 512> mensaje;
            sockaddr_in quien = {};
            socklen_t largo = sizeof quien;
            auto *direccion = reinterpret_cast<sockaddr *>(&quien);
            const ssize_t leidos =
                ::recvfrom(m_zocalo, mensaje.data(), mensaje.size(), 0, direccion, &largo);
            if (leidos < 12)
                continue;
            ++m_preguntas;
            mensaje[2] = static_cast<char>(mensaje[2] | 0x80); // an answer:
            mensaje[3] = static_cast<char>(0x83);              // no such name
            ::sendto(m_zocalo, mensaje.data(), static_cast<size_t>(leidos), 0, direccion, largo);
        }
    }

    int m_zocalo = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    bool m_abierto = false;
    std::atomic<int> m_preguntas = 0;
    std::atomic<bool> m_fin = false;
    std::thread m_hilo;
};

} // namespace

class tst_HttpSinSalida : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void interfazApagada_espera_data();
    void interfazApagada_espera();
    void cableFuera_espera();
    void nombrePorAhoraSinHallar_espera();
    void nombreDelProxySinHallar_espera();
    void otraEspera_noDetieneLosIntentos();

    void sinSalidaHastaElFin_falla();
    void servicioQueNuncaContesto_fallaEnSeguida();
    void rechazo_fallaEnSeguida();
    void corte_seEnviaUnaVez();
    void nombreQueNoExiste_fallaEnSeguida();

private:
    std::unique_ptr<ServidorGuion> servidor(const ServidorGuion::Guion &guion) const;
};

std::unique_ptr<ServidorGuion> tst_HttpSinSalida::servidor(const ServidorGuion::Guion &guion) const
{
    std::unique_ptr<ServidorGuion> nuevo;
    orilla::alli([&] { nuevo = std::make_unique<ServidorGuion>(guion, orilla::direccion); });
    return nuevo;
}

void tst_HttpSinSalida::initTestCase()
{
    if (motivoSinRed.isEmpty())
        motivoSinRed = orilla::tender();
    if (!motivoSinRed.isEmpty())
        QSKIP(qPrintable(motivoSinRed));
}

void tst_HttpSinSalida::init()
{
    sinProxy();
    QVERIFY(orilla::enchufar() && orilla::encender());
    QCOMPARE(RedPropia::nombresSabidos("127.0.0.1 localhost\n"), QString());
}

void tst_HttpSinSalida::interfazApagada_espera_data()
{
    QTest::addColumn<bool>("descarga");
    QTest::newRow("texto") << false;
    QTest::newRow("descarga") << true;
}

// The window lives on meanwhile, and the request reaches the service once.
void tst_HttpSinSalida::interfazApagada_espera()
{
    QFETCH(bool, descarga);
    const auto uno = servidor(contesta("hola"));
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QCOMPARE(http.get(uno->base() + "/antes", {}), QByteArray("hola"));
    QVERIFY(orilla::apagar());
    int vueltas = 0;
    bool encendida = false;
    QTimer latido;
    connect(&latido, &QTimer::timeout, this, [&] {
        if (++vueltas == 50) // some attempts later
            encendida = orilla::encender();
    });
    latido.start(10ms);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    if (descarga) {
        QVERIFY(http.getArchivo(uno->base() + "/durante", destino));
        QCOMPARE(destino.data(), QByteArray("hola"));
    } else {
        QCOMPARE(http.get(uno->base() + "/durante", {}), QByteArray("hola"));
    }
    QVERIFY(vueltas >= 50);
    QVERIFY(encendida);
    QCOMPARE(uno->destinos(), (QList<QByteArray>{"/antes", "/durante"}));
}

// The interface stays up and its routes stay: only the cable tells that there is no way out. An
// attempt then takes the system some three seconds.
void tst_HttpSinSalida::cableFuera_espera()
{
    const auto uno = servidor(contesta("hola"));
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QCOMPARE(http.get(uno->base() + "/antes", {}), QByteArray("hola"));
    QVERIFY(orilla::desenchufar());
    bool enchufado = false;
    QTimer::singleShot(5s, this, [&] { enchufado = orilla::enchufar(); });
    QCOMPARE(http.get(uno->base() + "/durante", {}), QByteArray("hola"));
    QVERIFY(enchufado);
    QCOMPARE(uno->destinos(), (QList<QByteArray>{"/antes", "/durante"}));
}

// Nobody is there to be asked: that is no answer.
void tst_HttpSinSalida::nombrePorAhoraSinHallar_espera()
{
    const auto uno = servidor(contesta("hola"));
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QCOMPARE(http.get(uno->base() + "/antes", {}), QByteArray("hola"));
    QString motivo = u"no time"_s;
    QTimer::singleShot(500ms, this,
                       [&] { motivo = RedPropia::nombresSabidos("10.77.0.2 servicio.example\n"); });
    const auto llegada =
        http.get("http://servicio.example:" + QByteArray::number(uno->puerto()) + "/durante", {});
    QCOMPARE(motivo, QString());
    QCOMPARE(llegada, QByteArray("hola"));
    QCOMPARE(uno->destinos(), (QList<QByteArray>{"/antes", "/durante"}));
}

void tst_HttpSinSalida::nombreDelProxySinHallar_espera()
{
    const auto uno = servidor(contesta("hola"));
    const auto proxy = servidor([](Charla &charla) {
        charla.leerCabeza();
        charla.enviar("HTTP/1.1 200 OK\r\n\r\n");
        contesta("por el tunel")(charla);
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QCOMPARE(http.get(uno->base() + "/antes", {}), QByteArray("hola"));
    qputenv("http_proxy", "http://proxy.example:" + QByteArray::number(proxy->puerto()));
    QString motivo = u"no time"_s;
    QTimer::singleShot(500ms, this,
                       [&] { motivo = RedPropia::nombresSabidos("10.77.0.2 proxy.example\n"); });
    const auto llegada = http.get("http://servicio.example/durante", {});
    QCOMPARE(motivo, QString());
    QCOMPARE(llegada, QByteArray("por el tunel"));
}

// A handler above keeps the request from returning: its attempts are made all the same.
void tst_HttpSinSalida::otraEspera_noDetieneLosIntentos()
{
    std::atomic<bool> externaPedida = false;
    const auto uno = servidor([&](Charla &charla) {
        const bool externa = charla.leerCabeza().contains("/externa");
        charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
        charla.clienteCierra();
        externaPedida = externaPedida || externa;
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QCOMPARE(http.get(uno->base() + "/antes", {}), QByteArray("hola"));
    QVERIFY(orilla::apagar());
    bool encendida = false;
    bool durante = false;
    QTimer::singleShot(0, this, [&] {
        QTest::qWait(500); // some attempts
        encendida = orilla::encender();
        durante = QTest::qWaitFor([&] { return externaPedida.load(); }, 20'000);
    });
    QCOMPARE(http.get(uno->base() + "/externa", {}), QByteArray("hola"));
    QVERIFY(encendida);
    QVERIFY(durante);
}

void tst_HttpSinSalida::sinSalidaHastaElFin_falla()
{
    const auto uno = servidor(contesta("hola"));
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(5s));
    QCOMPARE(http.get(uno->base() + "/antes", {}), QByteArray("hola"));
    QVERIFY(orilla::apagar());
    QElapsedTimer reloj;
    reloj.start();
    QCOMPARE(http.get(uno->base() + "/durante", {}), std::nullopt);
    QVERIFY2(reloj.elapsed() >= 4000, qPrintable(QString::number(reloj.elapsed())));
    QVERIFY(orilla::encender());
    QCOMPARE(http.get(uno->base() + "/despues", {}), QByteArray("hola"));
    QCOMPARE(uno->destinos(), (QList<QByteArray>{"/antes", "/despues"}));
}

void tst_HttpSinSalida::servicioQueNuncaContesto_fallaEnSeguida()
{
    const auto uno = servidor(contesta("hola"));
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QVERIFY(orilla::apagar());
    QElapsedTimer reloj;
    reloj.start();
    QCOMPARE(http.get(uno->base() + "/durante", {}), std::nullopt);
    QCOMPARE(http.get("http://servicio.example/durante", {}), std::nullopt);
    QVERIFY(reloj.elapsed() < muchoAntes);
}

void tst_HttpSinSalida::rechazo_fallaEnSeguida()
{
    auto uno = servidor(contesta("hola"));
    const QByteArray base = uno->base();
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QCOMPARE(http.get(base + "/antes", {}), QByteArray("hola"));
    uno.reset();
    QElapsedTimer reloj;
    reloj.start();
    QCOMPARE(http.get(base + "/durante", {}), std::nullopt);
    QVERIFY(reloj.elapsed() < muchoAntes);
}

void tst_HttpSinSalida::corte_seEnviaUnaVez()
{
    const auto uno = servidor([](Charla &charla) {
        charla.leerCabeza();
        if (charla.numero == 0)
            charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QVERIFY(http.get(uno->base() + "/antes", {}));
    QCOMPARE(http.get(uno->base() + "/durante", {}), std::nullopt);
    QCOMPARE(uno->destinos(), (QList<QByteArray>{"/antes", "/durante"}));
}

void tst_HttpSinSalida::nombreQueNoExiste_fallaEnSeguida()
{
    const ServidorQueNiega nombres;
    QVERIFY(nombres.abierto());
    const auto uno = servidor(contesta("hola"));
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(conexion));
    QCOMPARE(http.get(uno->base() + "/antes", {}), QByteArray("hola"));
    QElapsedTimer reloj;
    reloj.start();
    QCOMPARE(http.get("http://servicio.example/durante", {}), std::nullopt);
    QVERIFY(nombres.preguntas() > 0);
    QVERIFY(reloj.elapsed() < muchoAntes);
}

int main(int argc, char **argv)
{
    motivoSinRed = RedPropia::entrar();
    if (motivoSinRed.isEmpty())
        motivoSinRed = RedPropia::nombresSegun("nameserver 127.0.0.1\noptions attempts:1\n");
    QCoreApplication aplicacion(argc, argv);
    tst_HttpSinSalida prueba;
    return QTest::qExec(&prueba, argc, argv);
}

#include "tst_HttpSinSalida.moc"
