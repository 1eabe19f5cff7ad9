// SPDX-License-Identifier: MIT
// Requests that are made while another one is out: each comes to its own end.
#include "esperasHttp.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QDeadlineTimer>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <functional>
#include <semaphore>

using namespace std::chrono_literals;
using Charla = ServidorGuion::Charla;

class tst_HttpAnidadas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { sinProxy(); }

    void anidada_laInternaTerminaPrimero();
    void anidada_laExternaLlegaMientrasTanto();
    void anidadas_tresNiveles();
    void anidadas_masDeLasQueCaben_laUltimaFalla();
    void anidada_fallaSinDanarALaExterna();
    void anidada_descargaDentroDeTexto();
    void anidada_mismasGalletas();
    void anidada_laExternaCallaDemasiado();
    void muchasVecesAnidada_todasLlegan();
};

void tst_HttpAnidadas::anidada_laInternaTerminaPrimero()
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
void tst_HttpAnidadas::anidada_laExternaLlegaMientrasTanto()
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

void tst_HttpAnidadas::anidadas_tresNiveles()
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
void tst_HttpAnidadas::anidadas_masDeLasQueCaben_laUltimaFalla()
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

void tst_HttpAnidadas::anidada_fallaSinDanarALaExterna()
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

void tst_HttpAnidadas::anidada_descargaDentroDeTexto()
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
void tst_HttpAnidadas::anidada_mismasGalletas()
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
void tst_HttpAnidadas::anidada_laExternaCallaDemasiado()
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

void tst_HttpAnidadas::muchasVecesAnidada_todasLlegan()
{
    // Each outer one is held until one more has come and gone within it.
    std::atomic<int> internas = 0;
    const ServidorGuion guion([&](Charla &charla) {
        const QByteArray cabeza = charla.leerCabeza();
        if (const qsizetype e = cabeza.indexOf("/e"); e >= 0) {
            const int cuantas = cabeza.mid(e + 2, cabeza.indexOf(' ', e) - e - 2).toInt();
            const QDeadlineTimer plazo(60s);
            while (internas <= cuantas && !plazo.hasExpired())
                std::this_thread::sleep_for(1ms);
        }
        contestar(charla, cabeza);
        charla.clienteCierra();
    });
    HttpClient http;
    QList<QByteArray> otras; // replies that are not what was asked for
    bool dentro = false;
    QTimer reloj;
    connect(&reloj, &QTimer::timeout, this, [&] {
        if (dentro)
            return;
        dentro = true;
        const QByteArray destino = "/i" + QByteArray::number(internas.load());
        if (const auto llegada = http.get(guion.base() + destino, {}); llegada != destino)
            otras << destino + " -> " + llegada.value_or("nada");
        ++internas;
        dentro = false;
    });
    reloj.start(0ms);
    for (int i = 0; i < 100; ++i) {
        const QByteArray destino = "/e" + QByteArray::number(i);
        QCOMPARE(http.get(guion.base() + destino, {}), destino);
    }
    QCOMPARE(otras, QList<QByteArray>());
    QVERIFY(internas >= 100);
    QCOMPARE(guion.conexiones(), 100 + internas);
}

QTEST_GUILESS_MAIN(tst_HttpAnidadas)
#include "tst_HttpAnidadas.moc"
