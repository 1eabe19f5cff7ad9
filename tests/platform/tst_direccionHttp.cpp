// SPDX-License-Identifier: MIT
#include "platform/direccionHttp.h"

#include <QTest>

class tst_direccionHttp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cadaByte_enLinea();
    void direccion_separada_data();
    void direccion_separada();
    void segura_data();
    void segura();
    void redireccion_data();
    void redireccion();
    void lugar_resuelto_data();
    void lugar_resuelto();
    void lugar_ilegible_data();
    void lugar_ilegible();
};

void tst_direccionHttp::cadaByte_enLinea()
{
    const QByteArray quedan = "!$%&'()*+,-./0123456789:;=?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]_"
                              "abcdefghijklmnopqrstuvwxyz~";
    const QByteArray hexadecimales = "0123456789ABCDEF";
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray uno(1, static_cast<char>(byte));
        const QByteArray escrito =
            QByteArray("%") + hexadecimales[byte / 16] + hexadecimales[byte % 16];
        QCOMPARE(direccionHttp::destinoEnLinea(uno), quedan.contains(uno) ? uno : escrito);
    }
    QCOMPARE(direccionHttp::destinoEnLinea({}), QByteArray());
}

void tst_direccionHttp::direccion_separada_data()
{
    QTest::addColumn<QByteArray>("direccion");
    QTest::addColumn<QByteArray>("servidor");
    QTest::addColumn<QByteArray>("destino");
    const auto fila = [](const char *nombre, const QByteArray &direccion,
                         const QByteArray &servidor, const QByteArray &destino) {
        QTest::newRow(nombre) << direccion << servidor << destino;
    };
    fila("corriente", "https://s.example/a/b?c=d", "https://s.example", "/a/b?c=d");
    fila("con puerto", "http://127.0.0.1:8080/a", "http://127.0.0.1:8080", "/a");
    fila("sin ruta", "https://s.example", "https://s.example", "/");
    fila("sin ruta, con consulta", "https://s.example?a=/b", "https://s.example", "/?a=/b");
    fila("barras dobles", "https://s.example//a//b", "https://s.example", "//a//b");
    fila("direccion dentro", "https://s.example/x?f=http://h/y", "https://s.example",
         "/x?f=http://h/y");
    fila("bytes que no caben", "https://s.example/\xC1 #", "https://s.example", "/%C1%20%23");
    fila("numero entre corchetes", "http://[::1]:80/a", "http://[::1]:80", "/a");
}

void tst_direccionHttp::direccion_separada()
{
    QFETCH(QByteArray, direccion);
    QFETCH(QByteArray, servidor);
    QFETCH(QByteArray, destino);
    const direccionHttp::Partes partes = direccionHttp::separar(direccion);
    QCOMPARE(partes.servidor, servidor);
    QCOMPARE(partes.destino, destino);
}

void tst_direccionHttp::segura_data()
{
    QTest::addColumn<QByteArray>("direccion");
    QTest::addColumn<bool>("segura");
    QTest::newRow("https") << QByteArray("https://s.example/") << true;
    QTest::newRow("mayusculas") << QByteArray("HTTPS://s.example/") << true;
    QTest::newRow("http") << QByteArray("http://s.example/") << false;
    QTest::newRow("https en la ruta") << QByteArray("http://s.example/https:") << false;
    QTest::newRow("parecido") << QByteArray("httpsx://s.example/") << false;
    QTest::newRow("vacia") << QByteArray() << false;
}

void tst_direccionHttp::segura()
{
    QFETCH(QByteArray, direccion);
    QFETCH(bool, segura);
    QCOMPARE(direccionHttp::esSegura(direccion), segura);
}

void tst_direccionHttp::redireccion_data()
{
    QTest::addColumn<int>("estado");
    QTest::addColumn<bool>("lleva");
    for (const int estado : {301, 302, 303, 307, 308})
        QTest::addRow("%d", estado) << estado << true;
    for (const int estado : {0, 200, 201, 300, 304, 305, 306, 309, 400, 404, 500})
        QTest::addRow("%d", estado) << estado << false;
}

void tst_direccionHttp::redireccion()
{
    QFETCH(int, estado);
    QFETCH(bool, lleva);
    QCOMPARE(direccionHttp::esRedireccion(estado), lleva);
}

void tst_direccionHttp::lugar_resuelto_data()
{
    QTest::addColumn<QByteArray>("lugar");
    QTest::addColumn<QByteArray>("direccion"); // from http://s.example:81/dir/una?vieja=1
    const auto fila = [](const char *nombre, const QByteArray &lugar, const QByteArray &direccion) {
        QTest::newRow(nombre) << lugar << direccion;
    };
    fila("desde la raiz", "/y?z=1", "http://s.example:81/y?z=1");
    fila("relativo", "y", "http://s.example:81/dir/y");
    fila("un nivel arriba", "../y", "http://s.example:81/y");
    fila("solo consulta", "?z=1", "http://s.example:81/dir/una?z=1");
    fila("entero", "https://otro.example/y", "https://otro.example/y");
    fila("entero en mayusculas", "HTTPS://otro.example/Y", "https://otro.example/Y");
    fila("sin protocolo", "//otro.example/y", "http://otro.example/y");
    fila("fragmento", "/y?z=1#parte#mas", "http://s.example:81/y?z=1");
    fila("blancos", "/a b?c=d e", "http://s.example:81/a%20b?c=d%20e");
    fila("acentos", "/\xC1?c=\xF1", "http://s.example:81/%C1?c=%F1");
    fila("ya escrito", "/a%20b%c1", "http://s.example:81/a%20b%c1");
    fila("una sola barra", "https:/otro.example/y", "https://otro.example/y");
}

void tst_direccionHttp::lugar_resuelto()
{
    QFETCH(QByteArray, lugar);
    QFETCH(QByteArray, direccion);
    QCOMPARE(direccionHttp::direccionDe(lugar, "http://s.example:81/dir/una?vieja=1"), direccion);
}

void tst_direccionHttp::lugar_ilegible_data()
{
    QTest::addColumn<QByteArray>("lugar");
    QTest::newRow("puerto imposible") << QByteArray("http://s.example:99999/");
    QTest::newRow("https sin servidor, con puerto") << QByteArray("https:18084/x");
    QTest::newRow("HTTPS sin servidor, con puerto") << QByteArray("HTTPS:18084/x");
    QTest::newRow("https sin servidor") << QByteArray("https:x");
    QTest::newRow("https sin nada") << QByteArray("https:");
    QTest::newRow("https y barras") << QByteArray("https://");
    QTest::newRow("corchete sin cerrar") << QByteArray("https://[::1/x");
    QTest::newRow("blanco en el nombre") << QByteArray("https://s example/");
    QTest::newRow("archivo") << QByteArray("file:///etc/hostname");
    QTest::newRow("otro protocolo") << QByteArray("ftp://s.example/x");
}

void tst_direccionHttp::lugar_ilegible()
{
    QFETCH(QByteArray, lugar);
    for (const QByteArray desde : {"http://s.example:81/dir/una", "https://s.example/dir/una"})
        QCOMPARE(direccionHttp::direccionDe(lugar, desde), std::nullopt);
}

QTEST_APPLESS_MAIN(tst_direccionHttp)
#include "tst_direccionHttp.moc"
