// SPDX-License-Identifier: MIT
#include "clienteCrudo.h"
#include "demostracion/ServicioDemo.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTest>

static const QByteArray destino = "/querys/tessarin/salones.php?idcolegio=123&tipo=html";

class tst_fallas : public QObject {
    Q_OBJECT

    ServicioDemo m_servicio;

private Q_SLOTS:
    void init()
    {
        m_servicio.quitarFallas();
        m_servicio.olvidarPeticiones();
    }
    void demora_contestaDespues();
    void muda_noContesta();
    void retenida_contestaAlQuitarLasFallas();
    void vacia_cuerpoVacio();
    void cuerpo_llegaEnLugarDelOrdinario();
    void estado_conSuCuerpo();
    void cierraAntes_niUnByte();
    void cierraEnMedio_anunciaTodoYDaLaMitad();
    void largoErrado_anunciaLaMitadYDaTodo();
    void basura_noEsHttp();
    void redireccion_llevaDestino_data();
    void redireccion_llevaDestino();
    void veces_seAgotan();
    void reglaNueva_vaAntes();
    void otroDestino_sinFalla();
};

void tst_fallas::demora_contestaDespues()
{
    m_servicio.fallar("salones.php", {Falla::Demora, {}, 0, std::chrono::milliseconds(200)});
    QElapsedTimer reloj;
    reloj.start();
    QCOMPARE(estadoDe(pedir(m_servicio.base(), destino)), QByteArray("200"));
    QVERIFY(reloj.elapsed() >= 200);
}

void tst_fallas::muda_noContesta()
{
    m_servicio.fallar("salones.php", {Falla::Muda});
    ClienteCrudo cliente(m_servicio.base());
    cliente.enviar("GET " + destino + " HTTP/1.1\r\n\r\n");
    QCOMPARE(cliente.recibir(300), QByteArray());
    QVERIFY(!cliente.fin);
    QCOMPARE(m_servicio.peticiones().size(), 1);
}

void tst_fallas::retenida_contestaAlQuitarLasFallas()
{
    m_servicio.fallar("salones.php", {Falla::Retenida}, 1);
    ClienteCrudo cliente(m_servicio.base());
    cliente.enviar("GET " + destino + " HTTP/1.1\r\n\r\n");
    QCOMPARE(cliente.recibir(300), QByteArray());
    QVERIFY(!cliente.fin);
    m_servicio.quitarFallas();
    QCOMPARE(estadoDe(cliente.recibir()), QByteArray("200"));
}

void tst_fallas::vacia_cuerpoVacio()
{
    m_servicio.fallar("salones.php", {Falla::Vacia});
    const QByteArray respuesta = pedir(m_servicio.base(), destino);
    QCOMPARE(estadoDe(respuesta), QByteArray("200"));
    QCOMPARE(largoDe(respuesta), 0);
    QVERIFY(respuesta.endsWith("\r\n\r\n"));
}

void tst_fallas::cuerpo_llegaEnLugarDelOrdinario()
{
    QByteArray todos;
    for (int i = 0; i < 256; ++i)
        todos.append(static_cast<char>(i));
    m_servicio.fallar("salones.php", {Falla::Cuerpo, todos});
    const QByteArray respuesta = pedir(m_servicio.base(), destino);
    QCOMPARE(estadoDe(respuesta), QByteArray("200"));
    QCOMPARE(largoDe(respuesta), 256);
    QCOMPARE(cuerpoDe(respuesta), todos);
}

void tst_fallas::estado_conSuCuerpo()
{
    m_servicio.fallar("salones.php", {Falla::Estado, "se cay\xF3 el servicio", 500});
    const QByteArray respuesta = pedir(m_servicio.base(), destino);
    QVERIFY(respuesta.startsWith("HTTP/1.1 500 Internal Server Error\r\n"));
    QCOMPARE(cuerpoDe(respuesta), QByteArray("se cay\xF3 el servicio"));
}

void tst_fallas::cierraAntes_niUnByte()
{
    m_servicio.fallar("salones.php", {Falla::CierraAntes});
    ClienteCrudo cliente(m_servicio.base());
    cliente.enviar("GET " + destino + " HTTP/1.1\r\n\r\n");
    QCOMPARE(cliente.recibir(), QByteArray());
    QVERIFY(cliente.fin);
}

void tst_fallas::cierraEnMedio_anunciaTodoYDaLaMitad()
{
    const QByteArray entera = cuerpoDe(pedir(m_servicio.base(), destino));
    m_servicio.fallar("salones.php", {Falla::CierraEnMedio});
    const QByteArray respuesta = pedir(m_servicio.base(), destino);
    QCOMPARE(largoDe(respuesta), entera.size());
    QCOMPARE(cuerpoDe(respuesta), entera.left(entera.size() / 2));
}

void tst_fallas::largoErrado_anunciaLaMitadYDaTodo()
{
    const QByteArray entera = cuerpoDe(pedir(m_servicio.base(), destino));
    m_servicio.fallar("salones.php", {Falla::LargoErrado});
    const QByteArray respuesta = pedir(m_servicio.base(), destino);
    QCOMPARE(largoDe(respuesta), entera.size() / 2);
    QCOMPARE(cuerpoDe(respuesta), entera);
}

void tst_fallas::basura_noEsHttp()
{
    m_servicio.fallar("salones.php", {Falla::Basura});
    const QByteArray respuesta = pedir(m_servicio.base(), destino);
    QCOMPARE(
        respuesta,
        QByteArray("\x07\x00\xFF\xFE esto no es HTTP \x16\x03\x01\x80\r\n\r\n\xC1\xD1 ruido\r\n",
                   39));
}

void tst_fallas::redireccion_llevaDestino_data()
{
    QTest::addColumn<int>("pedido");
    QTest::addColumn<QByteArray>("linea");
    QTest::newRow("sin estado") << 0 << QByteArray("HTTP/1.1 302 Found\r\n");
    QTest::newRow("permanente") << 301 << QByteArray("HTTP/1.1 301 Moved Permanently\r\n");
}

void tst_fallas::redireccion_llevaDestino()
{
    QFETCH(int, pedido);
    QFETCH(QByteArray, linea);
    m_servicio.fallar("salones.php", {Falla::Redireccion, "/otro//sitio?a=1", pedido});
    const QByteArray respuesta = pedir(m_servicio.base(), destino);
    QVERIFY(respuesta.startsWith(linea));
    QVERIFY(respuesta.contains("\r\nLocation: /otro//sitio?a=1\r\n"));
}

void tst_fallas::veces_seAgotan()
{
    m_servicio.fallar("salones.php", {Falla::Cuerpo, "mal"}, 2);
    QCOMPARE(cuerpoDe(pedir(m_servicio.base(), destino)), QByteArray("mal"));
    QCOMPARE(cuerpoDe(pedir(m_servicio.base(), destino)), QByteArray("mal"));
    QVERIFY(cuerpoDe(pedir(m_servicio.base(), destino)).contains("</html>"));
}

void tst_fallas::reglaNueva_vaAntes()
{
    m_servicio.fallar("salones.php", {Falla::Cuerpo, "vieja"});
    m_servicio.fallar("tipo=html", {Falla::Cuerpo, "nueva"}, 1);
    QCOMPARE(cuerpoDe(pedir(m_servicio.base(), destino)), QByteArray("nueva"));
    QCOMPARE(cuerpoDe(pedir(m_servicio.base(), destino)), QByteArray("vieja"));
    m_servicio.quitarFallas();
    QVERIFY(cuerpoDe(pedir(m_servicio.base(), destino)).contains("</html>"));
}

void tst_fallas::otroDestino_sinFalla()
{
    m_servicio.fallar("alumnos.php", {Falla::Basura});
    QCOMPARE(estadoDe(pedir(m_servicio.base(), destino)), QByteArray("200"));
}

QTEST_MAIN(tst_fallas)
#include "tst_fallas.moc"
