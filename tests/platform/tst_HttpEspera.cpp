// SPDX-License-Identifier: MIT
// What happens while a request is out: the window lives on, and nothing of the connection outlives
// the request.
#include "esperasHttp.h"
#include "sinProxy.h"

#include <QAbstractEventDispatcher>
#include <QBuffer>
#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <array>
#include <atomic>
#include <cstdio>
#include <semaphore>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Charla = ServidorGuion::Charla;

namespace {

// The argument with which this program is one that a request must not reach.
constexpr auto hastaElFin = "--hasta-el-fin"_L1;

} // namespace

class tst_HttpEspera : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void elBucleGira_mientrasSeEspera();
    void elBucleGira_entreRedirecciones();

    void cadaPeticion_conexionPropia_data();
    void cadaPeticion_conexionPropia();
    void elOtroCierra_seEnviaUnaVez();
    void conexionAbierta_noSeHereda();
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

// The redirects of one request are one wait: once it lasts, none of them is waited for without the
// event loop, however quickly its reply comes.
void tst_HttpEspera::elBucleGira_entreRedirecciones()
{
    std::atomic<int> vueltas = 0;
    std::array<int, 11> alLlegar = {}; // turns until each request came
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        alLlegar[static_cast<std::size_t>(charla.numero)] = vueltas;
        if (charla.numero == 0)
            std::this_thread::sleep_for(10ms);
        if (charla.numero < 10)
            charla.enviar("HTTP/1.1 302 Found\r\nLocation: /b\r\nContent-Length: 0\r\n\r\n");
        else
            contestar(charla, cabeza);
        charla.clienteCierra();
    });
    HttpClient http;
    // Windows' loop is turned without a wait of its own, after one for what comes.
    const auto *bucle = QAbstractEventDispatcher::instance();
    const auto gira = bucle->inherits("QEventDispatcherWin32")
                          ? &QAbstractEventDispatcher::awake
                          : &QAbstractEventDispatcher::aboutToBlock;
    const auto cuenta = connect(
        bucle, gira, this, [&] { ++vueltas; }, Qt::DirectConnection);
    QCOMPARE(http.get(guion.base() + "/a", {}), QByteArray("/b"));
    disconnect(cuenta);
    QCOMPARE(guion.conexiones(), 11);
    for (std::size_t i = 1; i < alLlegar.size(); ++i)
        QVERIFY2(alLlegar[i] > alLlegar[i - 1], qPrintable(QString::number(i)));
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
        programa.start(QCoreApplication::applicationFilePath(), {QString(hastaElFin)});
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

int main(int argc, char **argv)
{
    const QCoreApplication aplicacion(argc, argv);
    if (QCoreApplication::arguments().value(1) == hastaElFin) {
        while (std::getchar() != EOF) {
        }
        return 0;
    }
    tst_HttpEspera prueba;
    return QTest::qExec(&prueba, argc, argv);
}

#include "tst_HttpEspera.moc"
