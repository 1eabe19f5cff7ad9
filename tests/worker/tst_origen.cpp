// SPDX-License-Identifier: MIT
#include "worker/render/Origen.h"

#include <QtTest>

class tst_origen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void origen_seSeparaEnPartes_data();
    void origen_seSeparaEnPartes();
    void cualquierOtraCosa_noEsOrigen_data();
    void cualquierOtraCosa_noEsOrigen();
    void direccion_esDelServicioONo_data();
    void direccion_esDelServicioONo();
};

void tst_origen::origen_seSeparaEnPartes_data()
{
    QTest::addColumn<QByteArray>("texto");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("puerto");
    QTest::addColumn<bool>("cifrado");
    QTest::newRow("https") << QByteArray("https://servicio.example") << "servicio.example" << 443
                           << true;
    QTest::newRow("http") << QByteArray("http://servicio.example") << "servicio.example" << 80
                          << false;
    QTest::newRow("port") << QByteArray("http://127.0.0.1:38211") << "127.0.0.1" << 38211 << false;
    QTest::newRow("letter case") << QByteArray("HTTPS://Servicio.Example") << "servicio.example"
                                 << 443 << true;
    QTest::newRow("IPv6") << QByteArray("http://[::1]:8080") << "::1" << 8080 << false;
    QTest::newRow("accents") << QByteArray("https://escuela-ñ.example")
                             << "xn--escuela--k3a.example" << 443 << true;
}

void tst_origen::origen_seSeparaEnPartes()
{
    QFETCH(QByteArray, texto);
    const auto origen = Origen::de(texto);
    QVERIFY(origen);
    QTEST(origen->host(), "host");
    QTEST(origen->puerto(), "puerto");
    QTEST(origen->cifrado(), "cifrado");
}

void tst_origen::cualquierOtraCosa_noEsOrigen_data()
{
    QTest::addColumn<QByteArray>("texto");
    for (const char *texto : {"",
                              "servicio.example",
                              "//servicio.example",
                              "https://",
                              "https:",
                              "ftp://servicio.example",
                              "file:///",
                              "https://u@servicio.example",
                              "https://u:c@servicio.example",
                              "https://servicio.example/",
                              "https://servicio.example/ruta",
                              "https://servicio.example?a=b",
                              "https://servicio.example#a",
                              "https://servicio.example:0",
                              "https://servicio.example:70000",
                              "https://servicio.example:x",
                              " https://servicio.example",
                              "https://servicio.example ",
                              "https://servi cio.example",
                              "https://a,https://b"})
        QTest::newRow(texto) << QByteArray(texto);
    QTest::newRow("with a NUL") << QByteArray("https://servicio.example\0a", 26);
}

void tst_origen::cualquierOtraCosa_noEsOrigen()
{
    QFETCH(QByteArray, texto);
    QVERIFY(!Origen::de(texto));
}

void tst_origen::direccion_esDelServicioONo_data()
{
    QTest::addColumn<QString>("direccion");
    QTest::addColumn<bool>("suya");
    const auto fila = [](const char *direccion, bool suya) {
        QTest::newRow(direccion) << direccion << suya;
    };
    fila("https://servicio.example", true);
    fila("https://servicio.example/a/b.png?c=d#e", true);
    fila("https://servicio.example:443/", true);
    fila("https://SERVICIO.example/", true);
    fila("https://u:c@servicio.example/", true);
    fila("http://servicio.example/", false);
    fila("http://servicio.example:443/", false);
    fila("https://servicio.example:444/", false);
    fila("https://servicio.example.otro.example/", false);
    fila("https://otro.servicio.example/", false);
    fila("https://servicio.example./", false);
    fila("https://otro.example/?https://servicio.example/", false);
    fila("https://servicio.example@otro.example/", false);
    fila("wss://servicio.example/", false);
    fila("file://servicio.example/", false);
    fila("//servicio.example/", false);
    fila("", false);
}

void tst_origen::direccion_esDelServicioONo()
{
    QFETCH(QString, direccion);
    const auto origen = Origen::de("https://servicio.example");
    QVERIFY(origen);
    QTEST(origen->tiene(QUrl(direccion)), "suya");
}

QTEST_GUILESS_MAIN(tst_origen)
#include "tst_origen.moc"
