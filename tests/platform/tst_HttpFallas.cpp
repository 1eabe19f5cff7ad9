// SPDX-License-Identifier: MIT
// What a request comes to when the service or the receiver of the bytes fails.
#include "CarpetaPersonal.h"
#include "casosFalla.h"
#include "platform/DriveC.h"
#include "sinProxy.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using casosFalla::paraFalla;

namespace {

// Takes the first bytes that it is given, and no more.
class DispositivoLleno final : public QIODevice {
public:
    explicit DispositivoLleno(qint64 cabida) : m_cabida(cabida)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 cuantos) override
    {
        const qint64 caben = qMin(cuantos, m_cabida);
        m_cabida -= caben;
        return caben < cuantos && caben == 0 ? -1 : caben;
    }

private:
    qint64 m_cabida;
};

} // namespace

class tst_HttpFallas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void falla_deTexto_data();
    void falla_deTexto();
    void falla_deDescarga_data();
    void falla_deDescarga();
    void falla_descargaEnArchivo_data();
    void falla_descargaEnArchivo();
    void estado_deTexto_data();
    void estado_deTexto();
    void destinoQueNoCabe_descargaFalla_data();
    void destinoQueNoCabe_descargaFalla();

private:
    ServicioDemo m_claro;
    QByteArray base() const { return m_claro.base().toLatin1(); }
};

void tst_HttpFallas::init()
{
    sinProxy();
    m_claro.quitarFallas();
    m_claro.olvidarPeticiones();
}

void tst_HttpFallas::falla_deTexto_data()
{
    casosFalla::deTexto();
}

void tst_HttpFallas::falla_deTexto()
{
    QFETCH(Falla, falla);
    QFETCH(std::optional<QByteArray>, cuerpo);
    HttpClient http(HttpClient::autoridadesDelSistema(), paraFalla(falla));
    m_claro.fallar("CDANE", falla, 1);
    QCOMPARE(http.get(base() + consulta, cabecerasTexto), cuerpo);
    QCOMPARE(m_claro.peticiones().size(), 1); // no request is repeated
    // The client has come to no harm.
    QCOMPARE(http.get(base() + consulta, cabecerasTexto), valor);
}

void tst_HttpFallas::falla_deDescarga_data()
{
    QTest::addColumn<Falla>("falla");
    QTest::addColumn<bool>("llega");
    QTest::addColumn<QByteArray>("cuerpo"); // when it arrives
    QTest::newRow("vacia") << Falla{Falla::Vacia} << true << QByteArray();
    QTest::newRow("corta") << Falla{Falla::Cuerpo, "12345678"} << true << QByteArray("12345678");
    QTest::newRow("estado 201") << Falla{Falla::Estado, "hecho", 201} << true
                                << QByteArray("hecho");
    QTest::newRow("estado 399") << Falla{Falla::Estado, "raro", 399} << true << QByteArray("raro");
    QTest::newRow("estado 400") << Falla{Falla::Estado, "mal", 400} << false << QByteArray();
    QTest::newRow("estado 404") << Falla{Falla::Estado, "no hay", 404} << false << QByteArray();
    QTest::newRow("estado 500") << Falla{Falla::Estado, "se rompio", 500} << false << QByteArray();
    QTest::newRow("demora") << Falla{Falla::Demora, {}, 0, 50ms} << true << valor;
    QTest::newRow("cierra antes") << Falla{Falla::CierraAntes} << false << QByteArray();
    QTest::newRow("cierra en medio") << Falla{Falla::CierraEnMedio} << false << QByteArray();
    QTest::newRow("largo errado") << Falla{Falla::LargoErrado} << true << QByteArray("305001");
    QTest::newRow("basura") << Falla{Falla::Basura} << false << QByteArray();
    QTest::newRow("muda") << Falla{Falla::Muda} << false << QByteArray();
}

void tst_HttpFallas::falla_deDescarga()
{
    QFETCH(Falla, falla);
    QFETCH(bool, llega);
    QFETCH(QByteArray, cuerpo);
    HttpClient http(HttpClient::autoridadesDelSistema(), paraFalla(falla));
    m_claro.fallar("CDANE", falla);
    QBuffer destino;
    destino.open(QIODevice::WriteOnly);
    QCOMPARE(http.getArchivo(base() + consulta, destino), llega);
    QCOMPARE(m_claro.peticiones().size(), 1);
    if (llega)
        QCOMPARE(destino.data(), cuerpo);
}

void tst_HttpFallas::falla_descargaEnArchivo_data()
{
    falla_deDescarga_data();
}

// The download as the program does it: straight into a file, which is there whole or not at all.
void tst_HttpFallas::falla_descargaEnArchivo()
{
    QFETCH(Falla, falla);
    QFETCH(bool, llega);
    QFETCH(QByteArray, cuerpo);
    const CarpetaPersonal casa;
    DriveC disco(casa.ruta());
    QVERIFY(disco.crearCarpeta(u"C:\\Quorvela"_s));
    HttpClient http(HttpClient::autoridadesDelSistema(), paraFalla(falla));
    m_claro.fallar("CDANE", falla);
    {
        const auto entrante = disco.recibir(u"C:\\Quorvela\\foto.jpg"_s);
        QVERIFY(entrante);
        if (http.getArchivo(base() + consulta, entrante->dispositivo()))
            QVERIFY(entrante->publicar());
    }
    QCOMPARE(casa.entradas(u"Quorvela"_s), llega ? QStringList{u"foto.jpg"_s} : QStringList());
    if (llega)
        QCOMPARE(casa.leer(u"Quorvela/foto.jpg"_s), cuerpo);
}

void tst_HttpFallas::estado_deTexto_data()
{
    QTest::addColumn<int>("estado");
    for (const int estado : {200, 201, 206, 299, 300, 305, 399, 400, 401, 403,
                             404, 407, 410, 451, 500, 502, 503, 599, 600, 999})
        QTest::addRow("%d", estado) << estado;
}

void tst_HttpFallas::estado_deTexto()
{
    QFETCH(int, estado);
    m_claro.fallar("CDANE", {Falla::Estado, "cuerpo", estado});
    HttpClient http;
    QCOMPARE(http.get(base() + consulta, cabecerasTexto), QByteArray("cuerpo"));
    QCOMPARE(m_claro.peticiones().size(), 1);
}

void tst_HttpFallas::destinoQueNoCabe_descargaFalla_data()
{
    QTest::addColumn<qint64>("cabida");
    QTest::addColumn<bool>("llega");
    QTest::newRow("ni un byte") << qint64(0) << false;
    QTest::newRow("la mitad") << qint64(6) << false;
    QTest::newRow("todo menos uno") << qint64(11) << false;
    QTest::newRow("justo") << qint64(12) << true;
}

void tst_HttpFallas::destinoQueNoCabe_descargaFalla()
{
    QFETCH(qint64, cabida);
    QFETCH(bool, llega);
    HttpClient http;
    DispositivoLleno destino(cabida);
    QCOMPARE(http.getArchivo(base() + consulta, destino), llega);
    QCOMPARE(m_claro.peticiones().size(), 1);
}

QTEST_MAIN(tst_HttpFallas)
#include "tst_HttpFallas.moc"
