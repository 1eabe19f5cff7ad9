// SPDX-License-Identifier: MIT
// A transfer that has ended stays as it ended, whatever other waits go on above it.
#include "esperasHttp.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <semaphore>

using namespace std::chrono_literals;
using Charla = ServidorGuion::Charla;

namespace {

// What a message box does: it keeps its handler, and with it every wait below, while the loop
// turns on.
template <class Condicion>
void cajaAbiertaHasta(Condicion cerrar)
{
    // The callers look at the condition again themselves.
    [[maybe_unused]] const bool cerrada =
        QTest::qWaitFor(cerrar, static_cast<int>(std::chrono::milliseconds(plazo).count()));
}

} // namespace

class tst_HttpTerminada : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { sinProxy(); }
    void cajaTrasElFin_conservaLaRespuesta_data();
    void cajaTrasElFin_conservaLaRespuesta();
    void peticionTrasElFin_conservaLaRespuesta();
    void abandonada_sueltaLaConexion();
};

void tst_HttpTerminada::cajaTrasElFin_conservaLaRespuesta_data()
{
    QTest::addColumn<bool>("descarga");
    QTest::newRow("texto") << false;
    QTest::newRow("descarga") << true;
}

// The box stays open past the silence limit after the reply has been read to its end.
void tst_HttpTerminada::cajaTrasElFin_conservaLaRespuesta()
{
    QFETCH(bool, descarga);
    constexpr auto silencio = 5s;
    std::binary_semaphore cajaAbierta(0);
    std::atomic<bool> leida = false;
    const ServidorGuion guion([&](Charla &charla) {
        charla.leerCabeza();
        if (!cajaAbierta.try_acquire_for(plazo))
            return;
        charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
        leida = charla.clienteCierra(plazo);
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conSilencio(silencio));
    QTimer::singleShot(0, this, [&] {
        cajaAbierta.release();
        cajaAbiertaHasta([&] { return leida.load(); });
        QTest::qWait(static_cast<int>(std::chrono::milliseconds(silencio).count()) + 500);
    });
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    if (descarga) {
        QVERIFY(http.getArchivo(guion.base() + "/a", destino));
        QCOMPARE(destino.data(), QByteArray("hola"));
    } else {
        QCOMPARE(http.get(guion.base() + "/a", {}), QByteArray("hola"));
    }
    QVERIFY(leida);
}

// The same while another request waits above for longer than the limit.
void tst_HttpTerminada::peticionTrasElFin_conservaLaRespuesta()
{
    std::binary_semaphore internaPedida(0);
    std::binary_semaphore externaLeida(0);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (cabeza.contains("/externa")) {
            if (!internaPedida.try_acquire_for(plazo))
                return;
            charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
            if (charla.clienteCierra(plazo))
                externaLeida.release();
            return;
        }
        internaPedida.release();
        if (!externaLeida.try_acquire_for(plazo))
            return;
        charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: 12\r\n\r\n");
        for (int i = 0; i < 12; ++i) { // each byte well within the limit, all of them beyond it
            std::this_thread::sleep_for(500ms);
            charla.enviar("x");
        }
        charla.clienteCierra();
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conSilencio(5s));
    std::optional<QByteArray> interna;
    QTimer::singleShot(0, this, [&] { interna = http.get(guion.base() + "/interna", {}); });
    QCOMPARE(http.get(guion.base() + "/externa", {}), QByteArray("hola"));
    QCOMPARE(interna, QByteArray("xxxxxxxxxxxx"));
}

// Given up for its silence, it is gone at once, and not when the box above is closed: what the
// server would still send reaches nobody.
void tst_HttpTerminada::abandonada_sueltaLaConexion()
{
    std::atomic<bool> suelta = false;
    const ServidorGuion guion([&](Charla &charla) {
        charla.leerCabeza();
        charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nab");
        suelta = charla.clienteCierra(plazo);
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conSilencio(3s));
    bool sueltaConLaCajaAbierta = false;
    QTimer::singleShot(0, this, [&] {
        cajaAbiertaHasta([&] { return suelta.load(); });
        sueltaConLaCajaAbierta = suelta;
    });
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(guion.base() + "/a", destino));
    QVERIFY(sueltaConLaCajaAbierta);
    QCOMPARE(destino.data(), QByteArray("ab"));
}

QTEST_GUILESS_MAIN(tst_HttpTerminada)
#include "tst_HttpTerminada.moc"
