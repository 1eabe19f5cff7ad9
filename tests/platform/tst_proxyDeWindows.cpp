// SPDX-License-Identifier: MIT
#include "proxyDeWindows.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_proxyDeWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listas_eligenElProxy_data();
    void listas_eligenElProxy();
    void excepciones_vanDirectas_data();
    void excepciones_vanDirectas();
    void propias_vanDirectas_data();
    void propias_vanDirectas();
};

void tst_proxyDeWindows::listas_eligenElProxy_data()
{
    QTest::addColumn<QByteArray>("direccion");
    QTest::addColumn<QString>("lista");
    QTest::addColumn<QByteArray>("proxy");
    const auto fila = [](const char *nombre, const char *direccion, const QString &lista,
                         const char *proxy) {
        QTest::newRow(nombre) << QByteArray(direccion) << lista << QByteArray(proxy);
    };
    fila("ninguno", "http://s.example/a", {}, "");
    fila("uno", "http://s.example/a", u"a:8080"_s, "http://a:8080");
    fila("uno, cifrada", "https://s.example", u"a:8080"_s, "http://a:8080");
    fila("sin puerto", "http://s.example", u"a"_s, "http://a:80");
    fila("el primero de varios", "http://s.example", u"a:80;b:81"_s, "http://a:80");
    fila("separados por blancos", "http://s.example", u" a:80 b:81"_s, "http://a:80");
    fila("por protocolo", "http://s.example", u"http=a:80;https=b:81"_s, "http://a:80");
    fila("por protocolo, cifrada", "https://s.example", u"http=a:80;https=b:81"_s, "http://b:81");
    fila("de otro protocolo", "https://s.example", u"http=a:80;ftp=c:21"_s, "");
    fila("con mayusculas", "HTTPS://s.example", u"HTTPS=B:81"_s, "http://b:81");
    fila("el suyo antes que el de todas", "https://s.example", u"a:80;https=b:81"_s, "http://b:81");
    fila("el de todas, sin el suyo", "https://s.example", u"http=b:81;a:80"_s, "http://a:80");
    fila("con clase", "http://s.example", u"http://a:80"_s, "http://a:80");
    fila("con clase y barra", "http://s.example", u"http=http://a:80/"_s, "http://a:80");
    fila("cifrado", "http://s.example", u"https://a"_s, "https://a:443");
    fila("de zocalos", "https://s.example", u"socks=c:1081"_s, "socks4://c:1081");
    fila("de zocalos sin puerto", "https://s.example", u"socks=c"_s, "socks4://c:1080");
    fila("de zocalos, para lo demas", "https://s.example", u"http=a:80;socks=c:1"_s,
         "socks4://c:1");
    fila("de zocalos, pero hay suyo", "http://s.example", u"socks=c:1;http=a:80"_s, "http://a:80");
    fila("de seis", "http://s.example", u"[2001:db8::1]:80"_s, "http://[2001:db8::1]:80");
    fila("nada tras el nombre", "http://s.example", u"http="_s, "");
}

void tst_proxyDeWindows::listas_eligenElProxy()
{
    QFETCH(QByteArray, direccion);
    QFETCH(QString, lista);
    QTEST(proxyDeWindows::proxyPara(direccion, lista, {}), "proxy");
}

void tst_proxyDeWindows::excepciones_vanDirectas_data()
{
    QTest::addColumn<QByteArray>("direccion");
    QTest::addColumn<QString>("salvo");
    QTest::addColumn<bool>("directa");
    const auto fila = [](const char *nombre, const char *direccion, const QString &salvo,
                         bool directa) {
        QTest::newRow(nombre) << QByteArray(direccion) << salvo << directa;
    };
    fila("ninguna", "https://s.example/a", {}, false);
    fila("el nombre", "https://s.example/a", u"s.example"_s, true);
    fila("con mayusculas", "https://S.example/a", u"s.EXAMPLE"_s, true);
    fila("otro nombre", "https://s.example", u"t.example"_s, false);
    fila("un trozo del nombre", "https://s.example", u"example"_s, false);
    fila("la segunda", "https://s.example", u"a;s.example"_s, true);
    fila("separadas por comas", "https://s.example", u"a,s.example"_s, true);
    fila("por delante", "https://s.example", u"*.example"_s, true);
    fila("por delante, sin el punto", "https://example", u"*.example"_s, false);
    fila("un punto es un punto", "https://sxexample", u"s.example"_s, false);
    fila("en medio", "https://s.z.example", u"s.*.example"_s, true);
    fila("todas", "https://s.example", u"*"_s, true);
    fila("figuras", "http://10.1.2.3/a", u"10.*"_s, true);
    fila("figuras de otra red", "http://11.1.2.3/a", u"10.*"_s, false);
    fila("de su protocolo", "https://s.example", u"https://s.example"_s, true);
    fila("de otro protocolo", "https://s.example", u"http://s.example"_s, false);
    fila("de su puerto", "https://s.example:8443/a", u"s.example:8443"_s, true);
    fila("del puerto de su protocolo", "https://s.example", u"s.example:443"_s, true);
    fila("de otro puerto", "https://s.example", u"s.example:8443"_s, false);
    fila("local", "http://intranet/a", u"<local>"_s, true);
    fila("local, con puerto", "http://intranet:8080/a", u"a;<LOCAL>"_s, true);
    fila("local no es un nombre con puntos", "http://s.example", u"<local>"_s, false);
    fila("local no son figuras", "http://[2001:db8::1]/", u"<local>"_s, false);
    fila("de seis", "http://[2001:db8::1]:80/", u"[2001:db8::1]"_s, true);
    fila("usuario en la direccion", "http://t.example@s.example/", u"t.example"_s, false);
}

void tst_proxyDeWindows::excepciones_vanDirectas()
{
    QFETCH(QByteArray, direccion);
    QFETCH(QString, salvo);
    QFETCH(bool, directa);
    QCOMPARE(proxyDeWindows::proxyPara(direccion, u"a:80"_s, salvo),
             directa ? QByteArray() : QByteArray("http://a:80"));
}

void tst_proxyDeWindows::propias_vanDirectas_data()
{
    QTest::addColumn<QByteArray>("direccion");
    QTest::addColumn<QString>("salvo");
    QTest::addColumn<bool>("propia");
    const auto fila = [](const char *nombre, const char *direccion, const QString &salvo,
                         bool propia) {
        QTest::newRow(nombre) << QByteArray(direccion) << salvo << propia;
    };
    fila("figuras", "http://127.0.0.1:40123/a", {}, true);
    fila("otras figuras", "http://127.9.9.9/a", {}, true);
    fila("nombre", "https://localhost:40123/a", {}, true);
    fila("nombre con mayusculas", "https://LocalHost/a", {}, true);
    fila("nombre de debajo", "https://escuela.localhost/", {}, true);
    fila("otro nombre suyo", "http://loopback/", {}, true);
    fila("de seis", "http://[::1]:80/", {}, true);
    fila("red sin orden", "http://169.254.7.7/", {}, true);
    fila("red sin orden, de seis", "http://[fe80::1]/", {}, true);
    fila("nombre que empieza igual", "http://127.0.0.1.example/", {}, false);
    fila("nombre que acaba igual", "http://milocalhost/", {}, false);
    fila("otra", "http://s.example/", {}, false);
    fila("red de verdad", "http://192.168.1.7/", {}, false);
    fila("dicho de otro modo", "http://127.0.0.1:40123/a", u"a;<-loopback>"_s, false);
    fila("con otras excepciones", "http://127.0.0.1:40123/a", u"<local>"_s, true);
}

void tst_proxyDeWindows::propias_vanDirectas()
{
    QFETCH(QByteArray, direccion);
    QFETCH(QString, salvo);
    QFETCH(bool, propia);
    QCOMPARE(proxyDeWindows::esDeAqui(direccion, salvo), propia);
    QCOMPARE(proxyDeWindows::proxyPara(direccion, u"a:80"_s, salvo),
             propia ? QByteArray() : QByteArray("http://a:80"));
}

QTEST_APPLESS_MAIN(tst_proxyDeWindows)
#include "tst_proxyDeWindows.moc"
