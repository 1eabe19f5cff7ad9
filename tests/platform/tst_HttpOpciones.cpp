// SPDX-License-Identifier: MIT
// The library refuses something: an option, a handle, a place in its queue. The request fails then,
// at once, and nothing goes out without what was asked for it. This program stands in the library's
// way with functions of the same names.
#include "ServidorGuion.h"
#include "estorbos.h"
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QTest>

using namespace std::chrono_literals;

using namespace estorbos;

class tst_HttpOpciones : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { sinProxy(); }
    void cleanup() { negada = Negada::Nada; }
    void opcionNegada_nadaSale_data();
    void opcionNegada_nadaSale();
    void opcionesDeProteccion_sePonen();
    void piezaNegada_falla_data();
    void piezaNegada_falla();
    void motorSinOpcion_falla_data();
    void motorSinOpcion_falla();
    void trasLaNegativa_elClienteSigue();
};

namespace {

const QByteArray hola = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola";
const HttpClient::Cabeceras cabeceras = {{"X-Primera", "1"}, {"X-Segunda", "2"}};

// A failed request, of either kind, at once and without a connection.
void comprobarQueFalla(HttpClient &http, const ServidorGuion &guion)
{
    QElapsedTimer reloj;
    reloj.start();
    QCOMPARE(http.get(guion.base() + "/texto", cabeceras), std::nullopt);
    QVERIFY(reloj.elapsed() < 60'000); // half of the silence after which a request is given up
    QCOMPARE(guion.conexiones(), 0);
}

} // namespace

// All options that a request sets, whichever they are; the first one tells them.
void tst_HttpOpciones::opcionNegada_nadaSale_data()
{
    QTest::addColumn<int>("opcion");
    const ServidorGuion guion(hola);
    opcionesPuestas.clear();
    HttpClient http;
    QCOMPARE(http.get(guion.base() + "/", cabeceras), QByteArray("hola"));
    for (const CURLoption opcion : opcionesPuestas)
        QTest::addRow("%d", static_cast<int>(opcion)) << static_cast<int>(opcion);
}

void tst_HttpOpciones::opcionNegada_nadaSale()
{
    QFETCH(int, opcion);
    const ServidorGuion guion(hola);
    HttpClient http;
    opcionNegada = static_cast<CURLoption>(opcion);
    negada = Negada::Opcion;
    comprobarQueFalla(http, guion);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QVERIFY(!http.getArchivo(guion.base() + "/archivo", destino));
    QCOMPARE(guion.conexiones(), 0);
}

void tst_HttpOpciones::opcionesDeProteccion_sePonen()
{
    const ServidorGuion guion(hola);
    opcionesPuestas.clear();
    HttpClient http;
    QVERIFY(http.get(guion.base() + "/", {}));
    for (const CURLoption opcion : deProteccion())
        QVERIFY2(opcionesPuestas.contains(opcion), qPrintable(QString::number(opcion)));
}

void tst_HttpOpciones::piezaNegada_falla_data()
{
    QTest::addColumn<int>("pieza");
    QTest::newRow("manija") << static_cast<int>(Negada::Manija);
    QTest::newRow("motor") << static_cast<int>(Negada::Motor);
    QTest::newRow("lo comun") << static_cast<int>(Negada::Comun);
    QTest::newRow("cabecera") << static_cast<int>(Negada::Cabecera);
    QTest::newRow("entrada al motor") << static_cast<int>(Negada::Entrada);
}

void tst_HttpOpciones::piezaNegada_falla()
{
    QFETCH(int, pieza);
    const ServidorGuion guion(hola);
    negada = static_cast<Negada>(pieza);
    HttpClient http;
    comprobarQueFalla(http, guion);
}

void tst_HttpOpciones::motorSinOpcion_falla_data()
{
    QTest::addColumn<int>("opcion");
    for (const CURLMoption opcion :
         {CURLMOPT_SOCKETFUNCTION, CURLMOPT_SOCKETDATA, CURLMOPT_TIMERFUNCTION, CURLMOPT_TIMERDATA})
        QTest::addRow("%d", static_cast<int>(opcion)) << static_cast<int>(opcion);
}

void tst_HttpOpciones::motorSinOpcion_falla()
{
    QFETCH(int, opcion);
    const ServidorGuion guion(hola);
    opcionDelMotorNegada = static_cast<CURLMoption>(opcion);
    negada = Negada::OpcionDelMotor;
    HttpClient http;
    comprobarQueFalla(http, guion);
}

void tst_HttpOpciones::trasLaNegativa_elClienteSigue()
{
    const ServidorGuion guion(hola);
    HttpClient http;
    for (const Negada una : {Negada::Manija, Negada::Cabecera, Negada::Entrada}) {
        negada = una;
        QCOMPARE(http.get(guion.base() + "/", cabeceras), std::nullopt);
        negada = Negada::Nada;
        QCOMPARE(http.get(guion.base() + "/", cabeceras), QByteArray("hola"));
    }
}

QTEST_GUILESS_MAIN(tst_HttpOpciones)
#include "tst_HttpOpciones.moc"
