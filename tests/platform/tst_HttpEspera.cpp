// SPDX-License-Identifier: MIT
// What happens while a request is out: the window lives on, and other requests are served.
#include "ServidorGuion.h"
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QDir>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <csignal>
#include <functional>
#include <semaphore>

#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Charla = ServidorGuion::Charla;

namespace {

constexpr auto plazo = 20s; // a wait in a script that would else never end

// Answers with the target itself.
void contestar(Charla &charla, const QByteArray &cabeza)
{
    const QByteArray destino = cabeza.split(' ').value(1);
    charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(destino.size())
                  + "\r\n\r\n" + destino);
}

HttpClient::Limites conSilencio(std::chrono::milliseconds silencio)
{
    HttpClient::Limites limites;
    limites.silencio = silencio;
    return limites;
}

qsizetype descriptoresAbiertos()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
}

} // namespace

class tst_HttpEspera : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void elBucleGira_mientrasSeEspera();
    void anidada_laInternaTerminaPrimero();
    void anidada_laExternaLlegaMientrasTanto();
    void anidadas_tresNiveles();
    void anidadas_masDeLasQueCaben_laUltimaFalla();
    void anidada_fallaSinDanarALaExterna();
    void anidada_descargaDentroDeTexto();
    void anidada_mismasGalletas();
    void anidada_laExternaCallaDemasiado();
    void muchasVecesAnidada_todasLlegan();

    void cadaPeticion_conexionPropia_data();
    void cadaPeticion_conexionPropia();
    void elOtroCierra_seEnviaUnaVez();
    void muchasPeticiones_noDejanDescriptores();
    void conexionAbierta_noSeHereda();
    void tuberiaRota_noTerminaElPrograma();
};

void tst_HttpEspera::initTestCase()
{
    sinProxy();
}

void tst_HttpEspera::elBucleGira_mientrasSeEspera()
{
    std::counting_semaphore<> vueltas(0);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        // No reply before the window's clock has ticked while the request was out.
        for (int i = 0; i < 10; ++i) {
            if (!vueltas.try_acquire_for(plazo))
                return;
        }
        contestar(charla, cabeza);
        charla.clienteCierra();
    });
    HttpClient http;
    QTimer reloj;
    connect(&reloj, &QTimer::timeout, this, [&] { vueltas.release(); });
    reloj.start(10ms);
    QCOMPARE(http.get(guion.base() + "/a", {}), QByteArray("/a"));
}

void tst_HttpEspera::anidada_laInternaTerminaPrimero()
{
    std::binary_semaphore internaContestada(0);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (cabeza.contains("/externa") && !internaContestada.try_acquire_for(plazo))
            return;
        contestar(charla, cabeza);
        charla.clienteCierra();
        if (cabeza.contains("/interna"))
            internaContestada.release();
    });
    HttpClient http;
    std::optional<QByteArray> interna;
    QTimer::singleShot(0, this, [&] { interna = http.get(guion.base() + "/interna", {}); });
    QCOMPARE(http.get(guion.base() + "/externa", {}), QByteArray("/externa"));
    QCOMPARE(interna, QByteArray("/interna"));
    QCOMPARE(guion.conexiones(), 2);
}

// The innermost wait drives them all: the outer reply is read to its end meanwhile.
void tst_HttpEspera::anidada_laExternaLlegaMientrasTanto()
{
    std::binary_semaphore internaPedida(0);
    std::binary_semaphore externaLeida(0);
    std::atomic<bool> cerrada = false;
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (cabeza.contains("/externa")) {
            if (!internaPedida.try_acquire_for(plazo))
                return;
            contestar(charla, cabeza);
            cerrada = charla.clienteCierra(plazo);
            externaLeida.release();
            return;
        }
        internaPedida.release();
        if (!externaLeida.try_acquire_for(plazo))
            return;
        contestar(charla, cabeza);
        charla.clienteCierra();
    });
    HttpClient http;
    std::optional<QByteArray> interna;
    QTimer::singleShot(0, this, [&] { interna = http.get(guion.base() + "/interna", {}); });
    QCOMPARE(http.get(guion.base() + "/externa", {}), QByteArray("/externa"));
    QCOMPARE(interna, QByteArray("/interna"));
    QVERIFY(cerrada);
}

void tst_HttpEspera::anidadas_tresNiveles()
{
    std::atomic<int> pedidas = 0;
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        ++pedidas;
        // All three are out at once before any is answered.
        const auto fin = std::chrono::steady_clock::now() + plazo;
        while (pedidas < 3 && std::chrono::steady_clock::now() < fin)
            std::this_thread::yield();
        contestar(charla, cabeza);
        charla.clienteCierra();
    });
    HttpClient http;
    QList<QByteArray> llegadas;
    QTimer::singleShot(0, this, [&] {
        QTimer::singleShot(0, this,
                           [&] { llegadas += http.get(guion.base() + "/3", {}).value_or("-"); });
        llegadas += http.get(guion.base() + "/2", {}).value_or("-");
    });
    llegadas += http.get(guion.base() + "/1", {}).value_or("-");
    QCOMPARE(llegadas, (QList<QByteArray>{"/3", "/2", "/1"}));
}

// Waits within waits have an end: what would be one too many fails at once, and harms none of the
// others.
void tst_HttpEspera::anidadas_masDeLasQueCaben_laUltimaFalla()
{
    std::counting_semaphore<> ultimaFallida(0);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (!ultimaFallida.try_acquire_for(plazo)) // none is answered before
            return;
        contestar(charla, cabeza);
        charla.clienteCierra();
    });
    HttpClient http;
    QList<QByteArray> llegadas;
    std::function<void(int)> pedir = [&](int numero) {
        if (numero <= HttpClient::peticionesMaximas)
            QTimer::singleShot(0, this, [&pedir, numero] { pedir(numero + 1); });
        const QByteArray destino = "/" + QByteArray::number(numero);
        llegadas += http.get(guion.base() + destino, {}).value_or("nada");
        if (numero > HttpClient::peticionesMaximas)
            ultimaFallida.release(HttpClient::peticionesMaximas);
    };
    pedir(1);
    QCOMPARE(llegadas, (QList<QByteArray>{"nada", "/8", "/7", "/6", "/5", "/4", "/3", "/2", "/1"}));
    QCOMPARE(guion.conexiones(), 8);
    ultimaFallida.release();
    QCOMPARE(http.get(guion.base() + "/despues", {}), QByteArray("/despues"));
}

void tst_HttpEspera::anidada_fallaSinDanarALaExterna()
{
    std::binary_semaphore internaFallida(0);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (cabeza.contains("/interna"))
            return; // without a byte of reply
        if (!internaFallida.try_acquire_for(plazo))
            return;
        contestar(charla, cabeza);
        charla.clienteCierra();
    });
    HttpClient http;
    std::optional<QByteArray> interna = "sin pedir";
    QTimer::singleShot(0, this, [&] {
        interna = http.get(guion.base() + "/interna", {});
        internaFallida.release();
    });
    QCOMPARE(http.get(guion.base() + "/externa", {}), QByteArray("/externa"));
    QCOMPARE(interna, std::nullopt);
}

void tst_HttpEspera::anidada_descargaDentroDeTexto()
{
    std::binary_semaphore descargada(0);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (cabeza.contains("/texto") && !descargada.try_acquire_for(plazo))
            return;
        contestar(charla, cabeza);
        charla.clienteCierra();
    });
    HttpClient http;
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    bool llego = false;
    QTimer::singleShot(0, this, [&] {
        llego = http.getArchivo(guion.base() + "/descarga", destino);
        descargada.release();
    });
    QCOMPARE(http.get(guion.base() + "/texto", {}), QByteArray("/texto"));
    QVERIFY(llego);
    QCOMPARE(destino.data(), QByteArray("/descarga"));
}

// Whatever way a request goes, it is the same visitor's.
void tst_HttpEspera::anidada_mismasGalletas()
{
    std::binary_semaphore internaContestada(0);
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (cabeza.contains("/externa") && !internaContestada.try_acquire_for(plazo))
            return;
        charla.enviar("HTTP/1.1 200 OK\r\nSet-Cookie: n" + QByteArray::number(charla.numero)
                      + "=1; path=/\r\nContent-Length: 0\r\n\r\n");
        charla.clienteCierra();
        if (cabeza.contains("/interna"))
            internaContestada.release();
    });
    HttpClient http;
    QVERIFY(http.get(guion.base() + "/primera", {}));
    QTimer::singleShot(0, this, [&] { http.get(guion.base() + "/interna", {}); });
    QVERIFY(http.get(guion.base() + "/externa", {}));
    QVERIFY(http.get(guion.base() + "/ultima", {}));
    QCOMPARE(guion.cabezas().size(), 4);
    for (const QByteArray &cabeza : guion.cabezas()) {
        if (!cabeza.startsWith("GET /primera "))
            QVERIFY2(cabeza.contains("n0=1"), cabeza.constData());
        if (cabeza.startsWith("GET /ultima "))
            QVERIFY2(cabeza.contains("n1=1") && cabeza.contains("n2=1"), cabeza.constData());
    }
}

// The outer limit runs out while the inner request waits: each has its own end.
void tst_HttpEspera::anidada_laExternaCallaDemasiado()
{
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (cabeza.contains("/externa")) {
            charla.clienteCierra(plazo);
            return;
        }
        for (int i = 0; i < 12; ++i) { // moves bytes for longer than the limit
            charla.enviar(i == 0 ? "HTTP/1.1 200 OK\r\n\r\n" : "x");
            std::this_thread::sleep_for(500ms);
        }
        charla.terminar();
        charla.clienteCierra();
    });
    HttpClient http(HttpClient::autoridadesDelSistema(), conSilencio(5000ms));
    std::optional<QByteArray> interna;
    QTimer::singleShot(0, this, [&] { interna = http.get(guion.base() + "/interna", {}); });
    QCOMPARE(http.get(guion.base() + "/externa", {}), std::nullopt);
    QCOMPARE(interna, QByteArray("xxxxxxxxxxx"));
}

void tst_HttpEspera::muchasVecesAnidada_todasLlegan()
{
    const ServidorGuion guion([&](Charla &charla) {
        contestar(charla, charla.leerCabeza());
        charla.clienteCierra();
    });
    HttpClient http;
    int internas = 0;
    bool dentro = false;
    QTimer reloj;
    connect(&reloj, &QTimer::timeout, this, [&] {
        if (dentro)
            return;
        dentro = true;
        const QByteArray destino = "/i" + QByteArray::number(internas);
        QCOMPARE(http.get(guion.base() + destino, {}), destino);
        ++internas;
        dentro = false;
    });
    reloj.start(0ms);
    for (int i = 0; i < 100; ++i) {
        const QByteArray destino = "/e" + QByteArray::number(i);
        QCOMPARE(http.get(guion.base() + destino, {}), destino);
    }
    QVERIFY(internas > 0);
    QCOMPARE(guion.conexiones(), 100 + internas);
}

void tst_HttpEspera::cadaPeticion_conexionPropia_data()
{
    QTest::addColumn<bool>("descarga");
    QTest::newRow("texto") << false;
    QTest::newRow("descarga") << true;
}

// The server would gladly keep the connection: it is the client that closes it.
void tst_HttpEspera::cadaPeticion_conexionPropia()
{
    QFETCH(bool, descarga);
    std::atomic<int> cerradas = 0;
    const ServidorGuion guion([&](Charla &charla) {
        charla.leerCabeza();
        charla.enviar("HTTP/1.1 200 OK\r\nConnection: keep-alive\r\nContent-Length: 1\r\n\r\nx");
        cerradas += charla.clienteCierra(plazo) ? 1 : 0;
    });
    HttpClient http;
    for (int i = 0; i < 3; ++i) {
        QBuffer destino;
        destino.open(QIODevice::WriteOnly);
        if (descarga)
            QVERIFY(http.getArchivo(guion.base() + "/a", destino));
        else
            QCOMPARE(http.get(guion.base() + "/a", {}), QByteArray("x"));
        QTRY_COMPARE(cerradas, i + 1);
    }
    QCOMPARE(guion.conexiones(), 3);
}

void tst_HttpEspera::elOtroCierra_seEnviaUnaVez()
{
    const ServidorGuion guion([](Charla &charla) {
        charla.leerCabeza();
        if (charla.numero % 2 == 1) // every second one by a reset
            charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nx");
    });
    HttpClient http;
    for (int i = 0; i < 6; ++i)
        QCOMPARE(http.get(guion.base() + "/a", {}), std::nullopt);
    QCOMPARE(guion.conexiones(), 6);
    QCOMPARE(guion.cabezas().size(), 6);
}

void tst_HttpEspera::muchasPeticiones_noDejanDescriptores()
{
    // Closed by the client first, so that nothing of the server's is open afterwards.
    const ServidorGuion guion([](Charla &charla) {
        contestar(charla, charla.leerCabeza());
        charla.clienteCierra();
    });
    HttpClient http;
    QVERIFY(http.get(guion.base() + "/primera", {}));
    const qsizetype antes = descriptoresAbiertos();
    for (int i = 0; i < 100; ++i)
        QVERIFY(http.get(guion.base() + "/a", {}));
    QTRY_VERIFY(descriptoresAbiertos() <= antes);
}

// A browser opened while a request is out would keep its connection for as long as it runs.
void tst_HttpEspera::conexionAbierta_noSeHereda()
{
    std::binary_semaphore pedida(0);
    std::binary_semaphore programaCorre(0);
    std::binary_semaphore clienteSeFue(0);
    std::atomic<bool> cerrada = false;
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        pedida.release();
        if (!programaCorre.try_acquire_for(plazo))
            return;
        contestar(charla, cabeza);
        cerrada = charla.clienteCierra(plazo);
        clienteSeFue.release();
    });
    HttpClient http;
    QProcess programa; // lives until its input ends
    QTimer reloj;
    connect(&reloj, &QTimer::timeout, this, [&] {
        if (!pedida.try_acquire())
            return;
        programa.start(u"/bin/cat"_s);
        programa.waitForStarted();
        programaCorre.release();
    });
    reloj.start(1ms);
    QCOMPARE(http.get(guion.base() + "/a", {}), QByteArray("/a"));
    QVERIFY(clienteSeFue.try_acquire_for(plazo));
    QVERIFY(cerrada);
    QCOMPARE(programa.state(), QProcess::Running);
    programa.closeWriteChannel();
    QVERIFY(programa.waitForFinished());
}

void tst_HttpEspera::tuberiaRota_noTerminaElPrograma()
{
    std::signal(SIGPIPE, SIG_DFL);
    const HttpClient http;
    int extremos[2] = {-1, -1};
    QCOMPARE(::pipe(extremos), 0);
    ::close(extremos[0]);
    QCOMPARE(::write(extremos[1], "x", 1), ssize_t(-1));
    ::close(extremos[1]);
}

QTEST_GUILESS_MAIN(tst_HttpEspera)
#include "tst_HttpEspera.moc"
