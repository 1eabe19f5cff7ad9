// SPDX-License-Identifier: MIT
// A name server that never answers: the window lives on while a name is looked up, when the
// request is given up, and nothing waits for the look-up's own end.
#include "RedPropia.h"
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <cstdlib>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The look-up lasts for so long; whatever waits for it to end takes about as much.
constexpr auto busqueda = 30s;
constexpr auto muchoMenos = 15s;

HttpClient::Limites conConexion(std::chrono::milliseconds conexion)
{
    HttpClient::Limites limites;
    limites.conexion = conexion;
    return limites;
}

// Takes what is asked, and keeps silent.
class ServidorMudo {
public:
    ServidorMudo()
    {
        sockaddr_in donde = {};
        donde.sin_family = AF_INET;
        donde.sin_port = htons(53);
        donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_abierto = ::bind(m_zocalo, reinterpret_cast<sockaddr *>(&donde), sizeof donde) == 0;
    }
    ~ServidorMudo() { ::close(m_zocalo); }
    ServidorMudo(const ServidorMudo &) = delete;
    ServidorMudo &operator=(const ServidorMudo &) = delete;

    bool abierto() const { return m_abierto; }
    bool preguntado() const
    {
        char byte = 0;
        return ::recv(m_zocalo, &byte, 1, MSG_DONTWAIT | MSG_PEEK) > 0;
    }

private:
    int m_zocalo = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    bool m_abierto = false;
};

QString motivoSinRed; // empty: the network is the test's own

} // namespace

class tst_HttpNombres : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void servidorMudo_elBucleGira();
    void servidorMudo_elProgramaTermina_data();
    void servidorMudo_elProgramaTermina();

private:
    std::unique_ptr<ServidorMudo> m_mudo;
};

void tst_HttpNombres::initTestCase()
{
    if (!motivoSinRed.isEmpty())
        QSKIP(qPrintable(motivoSinRed));
    sinProxy();
    m_mudo = std::make_unique<ServidorMudo>();
    QVERIFY(m_mudo->abierto());
}

void tst_HttpNombres::servidorMudo_elBucleGira()
{
    QElapsedTimer reloj;
    qint64 vueltas = 0;
    qint64 mayorHueco = 0;
    QTimer latido;
    connect(&latido, &QTimer::timeout, this, [&] {
        mayorHueco = std::max(mayorHueco, reloj.restart());
        ++vueltas;
    });
    latido.start(10ms);
    reloj.start();
    {
        HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(2s));
        QCOMPARE(http.get("http://servicio.example/", {}), std::nullopt);
        mayorHueco = std::max(mayorHueco, reloj.restart()); // the giving up,
    }
    mayorHueco = std::max(mayorHueco, reloj.elapsed()); // and the client's end
    QVERIFY(m_mudo->preguntado());
    QVERIFY2(vueltas >= 20, qPrintable(QString::number(vueltas)));
    QVERIFY2(mayorHueco < std::chrono::milliseconds(muchoMenos).count(),
             qPrintable(QString::number(mayorHueco)));
}

void tst_HttpNombres::servidorMudo_elProgramaTermina_data()
{
    QTest::addColumn<QString>("como");
    QTest::newRow("tras abandonar la peticion") << u"--abandona"_s;
    QTest::newRow("en medio de la peticion") << u"--sale"_s;
}

void tst_HttpNombres::servidorMudo_elProgramaTermina()
{
    QFETCH(QString, como);
    QProcess programa;
    QElapsedTimer reloj;
    reloj.start();
    programa.start(QCoreApplication::applicationFilePath(), {como});
    QVERIFY(programa.waitForFinished(static_cast<int>(std::chrono::milliseconds(2min).count())));
    QCOMPARE(programa.exitStatus(), QProcess::NormalExit);
    QCOMPARE(programa.exitCode(), 0);
    QVERIFY2(reloj.elapsed() < std::chrono::milliseconds(muchoMenos).count(),
             qPrintable(QString::number(reloj.elapsed())));
}

// The program whose end is watched.
static int terminar(QCoreApplication &aplicacion, bool enMedio)
{
    HttpClient http(HttpClient::autoridadesDelSistema(), conConexion(enMedio ? 1min : 1s));
    if (enMedio)
        QTimer::singleShot(1s, &aplicacion, [] { std::exit(0); });
    return http.get("http://servicio.example/", {}) ? 1 : 0;
}

int main(int argc, char **argv)
{
    const QByteArray como = argc > 1 ? argv[1] : "";
    const bool dentro = como == "--abandona" || como == "--sale";
    if (!dentro) {
        motivoSinRed = RedPropia::entrar();
        if (motivoSinRed.isEmpty())
            motivoSinRed =
                RedPropia::nombresSegun("nameserver 127.0.0.1\noptions attempts:1 timeout:"
                                        + QByteArray::number(qint64(busqueda.count())) + '\n');
    }
    QCoreApplication aplicacion(argc, argv);
    if (dentro)
        return terminar(aplicacion, como == "--sale");
    tst_HttpNombres prueba;
    return QTest::qExec(&prueba, argc, argv);
}

#include "tst_HttpNombres.moc"
