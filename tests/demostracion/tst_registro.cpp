// SPDX-License-Identifier: MIT
#include "clienteCrudo.h"
#include "demostracion/ServicioDemo.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTest>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include <zlib.h>

static QByteArray descomprimido(QByteArray gzip)
{
    constexpr int conCabeceraGzip = 16;
    z_stream corriente{};
    QByteArray bytes(1024 * 1024, Qt::Uninitialized);
    corriente.next_in = reinterpret_cast<Bytef *>(gzip.data());
    corriente.avail_in = static_cast<uInt>(gzip.size());
    corriente.next_out = reinterpret_cast<Bytef *>(bytes.data());
    corriente.avail_out = static_cast<uInt>(bytes.size());
    if (inflateInit2(&corriente, MAX_WBITS + conCabeceraGzip) != Z_OK)
        return {};
    const bool entero = inflate(&corriente, Z_FINISH) == Z_STREAM_END && corriente.avail_in == 0;
    bytes.truncate(entero ? static_cast<qsizetype>(corriente.total_out) : 0);
    inflateEnd(&corriente);
    return bytes;
}

class tst_registro : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void peticion_quedaByteAByte();
    void peticionPorTrozos_quedaEntera();
    void peticiones_quedanEnOrden();
    void olvidar_vaciaLaLista();
    void destinosRaros_llegan_data();
    void destinosRaros_llegan();
    void respuesta_cierraLaConexion();
    void aceptaCompresion_llegaComprimida();
    void cabeceras_enSuOrden_data();
    void cabeceras_enSuOrden();
    void otroMetodo_noPermitido();
    void muchosALaVez_todosContestados();
    void conexionMuda_noRetrasaElFin();
};

void tst_registro::peticion_quedaByteAByte()
{
    const ServicioDemo servicio;
    const QByteArray cabeza = "GET /querys/tessarin/login.php?azar=1&user=a%C1&pwd= HTTP/1.1\r\n"
                              "Host: x\r\nContent-type:  application/x-www-form-urlencoded \r\n"
                              "Content-length: 0\r\ncOnNeCtIoN: close\r\n\r\n";
    ClienteCrudo cliente(servicio.base());
    cliente.enviar(cabeza + "sobra");
    QCOMPARE(cuerpoDe(cliente.recibir()), QByteArray("ERROR"));
    QCOMPARE(servicio.peticiones().size(), 1);
    const Peticion peticion = servicio.peticiones().first();
    QCOMPARE(peticion.bytes, cabeza);
    QCOMPARE(peticion.metodo, QByteArray("GET"));
    QCOMPARE(peticion.destino, QByteArray("/querys/tessarin/login.php?azar=1&user=a%C1&pwd="));
    const QList<QPair<QByteArray, QByteArray>> cabeceras = {
        {"Host", "x"},
        {"Content-type", "application/x-www-form-urlencoded"},
        {"Content-length", "0"},
        {"cOnNeCtIoN", "close"}};
    QCOMPARE(peticion.cabeceras, cabeceras);
}

void tst_registro::peticionPorTrozos_quedaEntera()
{
    const ServicioDemo servicio;
    ClienteCrudo cliente(servicio.base());
    const QByteArray cabeza = "GET /nada HTTP/1.1\r\nHost: x\r\n\r\n";
    for (const char byte : cabeza)
        cliente.enviar(QByteArray(1, byte));
    QCOMPARE(estadoDe(cliente.recibir()), QByteArray("404"));
    QCOMPARE(servicio.peticiones().first().bytes, cabeza);
}

void tst_registro::peticiones_quedanEnOrden()
{
    const ServicioDemo servicio;
    for (int i = 0; i < 20; ++i)
        pedir(servicio.base(), "/nada/" + QByteArray::number(i));
    QCOMPARE(servicio.peticiones().size(), 20);
    for (int i = 0; i < 20; ++i)
        QCOMPARE(servicio.peticiones().at(i).destino, "/nada/" + QByteArray::number(i));
}

void tst_registro::olvidar_vaciaLaLista()
{
    ServicioDemo servicio;
    pedir(servicio.base(), "/nada");
    servicio.olvidarPeticiones();
    QCOMPARE(servicio.peticiones().size(), 0);
}

void tst_registro::destinosRaros_llegan_data()
{
    QTest::addColumn<QByteArray>("destino");
    QTest::addColumn<QByteArray>("contiene");
    QTest::newRow("tramo vacio") << QByteArray("/anotador/123/2010/reporte/1001//-1/tessarin/4711")
                                 << QByteArray("Observador del estudiante");
    QTest::newRow("consulta sin escapar") << QByteArray(
        "/querys/tessarin/existe.php?azar=1&f=http://otro:80/jup/images/123/1-alumno.jpg")
                                          << QByteArray("NO");
    QTest::newRow("byte alto") << QByteArray("/imgTXT.php?txt=%C1REA") << QByteArray("PNG");
    QTest::newRow("blanco final") << QByteArray("/jscript/jquery.tools.min.js?azar=1&")
                                  << QByteArray("jQuery");
    QTest::newRow("puntos") << QByteArray("/images/../../etc/passwd")
                            << QByteArray("P\xE1gina no encontrada");
    QTest::newRow("byte crudo") << QByteArray("/imgTXT.php?txt=\xC1REA") << QByteArray("PNG");
}

void tst_registro::destinosRaros_llegan()
{
    QFETCH(QByteArray, destino);
    QFETCH(QByteArray, contiene);
    const ServicioDemo servicio;
    const QByteArray respuesta = pedir(servicio.base(), destino);
    QVERIFY(cuerpoDe(respuesta).contains(contiene));
    QCOMPARE(largoDe(respuesta), cuerpoDe(respuesta).size());
    QCOMPARE(servicio.peticiones().first().destino, destino);
}

void tst_registro::respuesta_cierraLaConexion()
{
    const ServicioDemo servicio;
    ClienteCrudo cliente(servicio.base());
    cliente.enviar("GET /nada HTTP/1.1\r\nHost: x\r\nConnection: keep-alive\r\n\r\n");
    QVERIFY(cliente.recibir().toLower().contains("\r\nconnection: close\r\n"));
    QVERIFY(cliente.fin);
}

void tst_registro::aceptaCompresion_llegaComprimida()
{
    const ServicioDemo servicio;
    const QByteArray destino = "/querys/tessarin/salones.php?idcolegio=123&tipo=html";
    ClienteCrudo cliente(servicio.base());
    cliente.enviar("GET " + destino
                   + " HTTP/1.1\r\nHost: x\r\nAccept-Encoding: deflate, gzip\r\n\r\n");
    const QByteArray respuesta = cliente.recibir();
    QVERIFY(respuesta.contains("\r\nContent-Encoding: gzip\r\n"));
    QCOMPARE(largoDe(respuesta), cuerpoDe(respuesta).size());
    QCOMPARE(descomprimido(cuerpoDe(respuesta)), cuerpoDe(pedir(servicio.base(), destino)));
}

void tst_registro::cabeceras_enSuOrden_data()
{
    QTest::addColumn<QByteArray>("pedido");
    QTest::addColumn<QByteArray>("cabeza");
    const QByteArray campo = " /querys/tessarin/tomarValor.php?idcolegio=123&campo=";
    const QByteArray gzip = " HTTP/1.1\r\nAccept-Encoding: gzip\r\n\r\n";
    QTest::newRow("texto") << "GET" + campo + "CDANE HTTP/1.1\r\n\r\n"
                           << QByteArray(
                                  "HTTP/1.1 200 OK\r\nConnection: close\r\n"
                                  "Content-Length: 12\r\n"
                                  "Content-Type: text/html; charset=windows-1252\r\n\r\n3050");
    QTest::newRow("comprimido") << "GET" + campo + "CDANE" + gzip
                                << QByteArray("HTTP/1.1 200 OK\r\nConnection: close\r\n"
                                              "Content-Encoding: gzip\r\nContent-Length: 32\r\n"
                                              "Content-Type: text/html; charset=windows-1252\r\n"
                                              "\r\n\x1F\x8B");
    QTest::newRow("vacio") << "GET" + campo + "NADA" + gzip
                           << QByteArray("HTTP/1.1 200 OK\r\nConnection: close\r\n"
                                         "Content-Length: 0\r\n"
                                         "Content-Type: text/html; charset=windows-1252\r\n\r\n");
    QTest::newRow("imagen") << "GET /images/bg.gif" + gzip
                            << QByteArray("HTTP/1.1 200 OK\r\nConnection: close\r\n"
                                          "Content-Length: 54\r\n"
                                          "Content-Type: image/gif\r\n\r\nGIF89a");
    QTest::newRow("sin cuerpo") << "HEAD" + campo + "CDANE HTTP/1.1\r\n\r\n"
                                << QByteArray(
                                       "HTTP/1.1 200 OK\r\nConnection: close\r\n"
                                       "Content-Length: 12\r\n"
                                       "Content-Type: text/html; charset=windows-1252\r\n\r\n");
}

void tst_registro::cabeceras_enSuOrden()
{
    QFETCH(QByteArray, pedido);
    QFETCH(QByteArray, cabeza);
    const ServicioDemo servicio;
    ClienteCrudo cliente(servicio.base());
    cliente.enviar(pedido);
    const QByteArray respuesta = cliente.recibir();
    QCOMPARE(respuesta.left(cabeza.size()), cabeza);
    if (pedido.startsWith("HEAD"))
        QCOMPARE(respuesta, cabeza);
}

void tst_registro::otroMetodo_noPermitido()
{
    const ServicioDemo servicio;
    ClienteCrudo cliente(servicio.base());
    cliente.enviar("POST /nada HTTP/1.1\r\nHost: x\r\n\r\n");
    QCOMPARE(estadoDe(cliente.recibir()), QByteArray("405"));
    QCOMPARE(servicio.peticiones().first().metodo, QByteArray("POST"));
}

void tst_registro::muchosALaVez_todosContestados()
{
    const ServicioDemo servicio;
    std::atomic<int> bien = 0;
    std::vector<std::thread> hilos;
    for (int h = 0; h < 8; ++h)
        hilos.emplace_back([&, h] {
            for (int i = 0; i < 10; ++i) {
                const QByteArray id = QByteArray::number(1001 + h);
                const QByteArray foto =
                    pedir(servicio.base(), "/jup/images/123/" + id + "-alumno.jpg");
                const QByteArray ficha =
                    pedir(servicio.base(), "/alumnos/123/2010/hojaMatricula/" + id + "/tessarin/");
                bien += !foto.isEmpty() && estadoDe(ficha) == "200" ? 1 : 0;
            }
        });
    for (std::thread &hilo : hilos)
        hilo.join();
    QCOMPARE(bien.load(), 80);
    QCOMPARE(servicio.peticiones().size(), 160);
}

void tst_registro::conexionMuda_noRetrasaElFin()
{
    auto servicio = std::make_unique<ServicioDemo>();
    servicio->fallar("/calla", {Falla::Muda});
    servicio->fallar("/tarda", {Falla::Demora, {}, 0, std::chrono::minutes(1)});
    ClienteCrudo nada(servicio->base());
    ClienteCrudo mitad(servicio->base());
    mitad.enviar("GET /me");
    ClienteCrudo calla(servicio->base());
    calla.enviar("GET /calla HTTP/1.1\r\n\r\n");
    ClienteCrudo tarda(servicio->base());
    tarda.enviar("GET /tarda HTTP/1.1\r\n\r\n");
    QTRY_COMPARE(servicio->peticiones().size(), 2);
    QElapsedTimer reloj;
    reloj.start();
    servicio.reset();
    QVERIFY(reloj.elapsed() < 1000);
    QCOMPARE(calla.recibir(), QByteArray());
}

QTEST_MAIN(tst_registro)
#include "tst_registro.moc"
