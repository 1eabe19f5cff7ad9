// SPDX-License-Identifier: MIT
// An https address behind which nothing encrypts: no request ever leaves for it.
#include "ServidorGuion.h"
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QTest>

class tst_HttpsSinCifrado : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { sinProxy(); }

    void servidorSinTls_falla();
    void direccionHttpsIlegible_noVaSinCifrar();
};

void tst_HttpsSinCifrado::servidorSinTls_falla()
{
    std::atomic<bool> saludado = false;
    const ServidorGuion claro([&](ServidorGuion::Charla &charla) {
        const QByteArray saludo = charla.leer(); // which it does not understand
        saludado = saludo.startsWith('\x16') && !saludo.contains("GET");
        charla.enviar("HTTP/1.1 400 Que\r\n\r\nhola");
        charla.terminar();
        charla.clienteCierra();
    });
    HttpClient http;
    QCOMPARE(http.get("https://127.0.0.1:" + QByteArray::number(claro.puerto()) + '/', {}),
             std::nullopt);
    QVERIFY(saludado);
}

void tst_HttpsSinCifrado::direccionHttpsIlegible_noVaSinCifrar()
{
    const ServidorGuion claro("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
    qputenv("http_proxy", claro.base());
    HttpClient http;
    for (const QByteArray protocolo : {"https:", "HTTPS:"}) {
        QCOMPARE(http.get(protocolo + QByteArray::number(claro.puerto()) + "/x", {}), std::nullopt);
        QCOMPARE(http.get(protocolo + "servicio/x", {}), std::nullopt);
    }
    QCOMPARE(claro.conexiones(), 0);
}

QTEST_GUILESS_MAIN(tst_HttpsSinCifrado)
#include "tst_HttpsSinCifrado.moc"
