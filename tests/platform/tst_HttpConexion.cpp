// SPDX-License-Identifier: MIT
// A connection that is never made.
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QElapsedTimer>
#include <QTest>

#include <vector>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace std::chrono_literals;

class tst_HttpConexion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { sinProxy(); }
    void conexionQueNoSeHace_seAbandona();
};

// A listener whose queue is full answers no further connection.
void tst_HttpConexion::conexionQueNoSeHace_seAbandona()
{
    const int oido = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in donde = {};
    donde.sin_family = AF_INET;
    donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof donde;
    auto *direccion = reinterpret_cast<sockaddr *>(&donde);
    QCOMPARE(::bind(oido, direccion, largo), 0);
    QCOMPARE(::listen(oido, 0), 0);
    QCOMPARE(::getsockname(oido, direccion, &largo), 0);
    std::vector<int> cola;
    for (int i = 0; i < 8; ++i) {
        cola.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        [[maybe_unused]] const int enCurso = ::connect(cola.back(), direccion, largo);
    }
    HttpClient::Limites limites;
    limites.conexion = 300ms;
    HttpClient http(HttpClient::autoridadesDelSistema(), limites);
    QElapsedTimer reloj;
    reloj.start();
    const auto respuesta =
        http.get("http://127.0.0.1:" + QByteArray::number(ntohs(donde.sin_port)) + "/", {});
    const qint64 tardanza = reloj.elapsed();
    for (const int conexion : cola)
        ::close(conexion);
    ::close(oido);
    QCOMPARE(respuesta, std::nullopt);
    QVERIFY(tardanza >= 299);   // it was the limit, and no refusal
    QVERIFY(tardanza < 60'000); // and not the silence's
}

QTEST_GUILESS_MAIN(tst_HttpConexion)
#include "tst_HttpConexion.moc"
