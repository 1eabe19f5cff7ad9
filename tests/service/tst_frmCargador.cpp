// SPDX-License-Identifier: MIT
#include "escenario/Escenario.h"
#include "service/frmCargador.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString pagina = u"/querys/tessarin/tomarValor.php"_s;
}

class tst_frmCargador : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void direccion_seArmaSegunAzarYLargoDeLosParametros_data()
    {
        QTest::addColumn<QString>("parametros");
        QTest::addColumn<bool>("usarAzar");
        QTest::addColumn<QString>("direccion");
        QTest::newRow("azar first") << u"a=1&b=2"_s << true << u"http://s/p?azar=4711&a=1&b=2"_s;
        QTest::newRow("azar with an empty query leaves a trailing &")
            << QString() << true << u"http://s/p?azar=4711&"_s;
        QTest::newRow("two characters are dropped") << u"ab"_s << false << u"http://s/p"_s;
        QTest::newRow("three characters are sent") << u"abc"_s << false << u"http://s/p?abc"_s;
        QTest::newRow("nothing") << QString() << false << u"http://s/p"_s;
    }
    void direccion_seArmaSegunAzarYLargoDeLosParametros()
    {
        QFETCH(QString, parametros);
        QFETCH(bool, usarAzar);
        QFETCH(QString, direccion);
        QCOMPARE(frmCargador::direccionDe(u"http://s/p"_s, parametros, usarAzar, 4711), direccion);
    }

    void reglaDeRepeticion_miraRespuestaEIntento_data()
    {
        QTest::addColumn<QByteArray>("respuesta");
        QTest::addColumn<int>("intento");
        QTest::addColumn<bool>("otra");
        for (int intento = 1; intento <= 4; ++intento) {
            const bool quedan = intento < 4;
            const auto fila = [&](const char *nombre, const QByteArray &respuesta, bool otra) {
                QTest::addRow("%s, try %d", nombre, intento) << respuesta << intento << otra;
            };
            fila("empty", QByteArray(), quedan);
            fila("ERROR", "ERROR", quedan);
            fila("seven characters", "1234567", quedan);
            fila("si in lower case", "si", quedan);
            fila("SI and a blank", "SI ", quedan);
            fila("SI", "SI", false);
            fila("NO", "NO", false);
            fila("eight characters", "12345678", false);
        }
    }
    void reglaDeRepeticion_miraRespuestaEIntento()
    {
        QFETCH(QByteArray, respuesta);
        QFETCH(int, intento);
        QFETCH(bool, otra);
        QCOMPARE(frmCargador::pedirDeNuevo(respuesta, intento), otra);
    }

    void pedido_llevaLasTresCabecerasEnSuOrden()
    {
        Escenario e;
        e.responder("/p.php", "respuesta larga");
        frmCargador cargador(e.entorno);
        QCOMPARE(cargador.conectar(e.demo.base() + u"/p.php"_s, u"x=1"_s, false),
                 u"respuesta larga"_s);
        const auto peticiones = e.demo.peticiones();
        QCOMPARE(peticiones.size(), 1);
        const QByteArray servidor = e.demo.base().mid(7).toLatin1();
        QCOMPARE(peticiones.first().bytes,
                 QByteArray("GET /p.php?x=1 HTTP/1.1\r\n"
                            "Host: "
                            + servidor
                            + "\r\n"
                              "User-Agent: Parvanel/4.0\r\n"
                              "Accept: */*\r\n"
                              "Accept-Encoding: gzip, deflate\r\n"
                              "Content-type: application/x-www-form-urlencoded\r\n"
                              "Content-length: 0\r\n"
                              "Connection: close\r\n\r\n"));
    }

    void respuesta_seRepiteSegunSuLargo_data()
    {
        QTest::addColumn<QByteArray>("respuesta");
        QTest::addColumn<int>("pedidos");
        QTest::newRow("SI is complete") << QByteArray("SI") << 1;
        QTest::newRow("NO is complete") << QByteArray("NO") << 1;
        QTest::newRow("si is not") << QByteArray("si") << 4;
        QTest::newRow("SI with a line end is not") << QByteArray("SI\r\n") << 4;
        QTest::newRow("three characters") << QByteArray("ERR") << 4;
        QTest::newRow("a year") << QByteArray("2010") << 4;
        QTest::newRow("seven characters") << QByteArray("1234567") << 4;
        QTest::newRow("eight characters") << QByteArray("12345678") << 1;
        QTest::newRow("empty") << QByteArray("") << 4;
    }
    void respuesta_seRepiteSegunSuLargo()
    {
        QFETCH(QByteArray, respuesta);
        QFETCH(int, pedidos);
        Escenario e;
        e.responder("/p.php", respuesta);
        frmCargador cargador(e.entorno);
        QCOMPARE(cargador.conectar(e.demo.base() + u"/p.php"_s, {}, true),
                 QString::fromLatin1(respuesta));
        QCOMPARE(e.demo.peticiones().size(), pedidos);
    }

    void paginaDeError_deOchoCaracteresSeTomaDeUnaVez()
    {
        Escenario e;
        Falla falla;
        falla.clase = Falla::Estado;
        falla.estado = 500;
        falla.cuerpo = "Internal error";
        e.demo.fallar("/p.php", falla);
        frmCargador cargador(e.entorno);
        QCOMPARE(cargador.conectar(e.demo.base() + u"/p.php"_s, {}, true), u"Internal error"_s);
        QCOMPARE(e.demo.peticiones().size(), 1);
    }

    void cadaIntento_llevaUnNumeroNuevoEnSuRango()
    {
        Escenario e;
        e.responder("/p.php", "ERR");
        frmCargador cargador(e.entorno);
        cargador.conectar(e.demo.base() + u"/p.php"_s, u"a=b"_s, true);
        static const QRegularExpression forma(u"^/p\\.php\\?azar=(\\d+)&a=b$"_s);
        QSet<int> numeros;
        const auto peticiones = e.demo.peticiones();
        for (const Peticion &peticion : peticiones) {
            const auto hallado = forma.match(QString::fromLatin1(peticion.destino));
            QVERIFY2(hallado.hasMatch(), peticion.destino.constData());
            const int numero = hallado.captured(1).toInt();
            QVERIFY(numero >= 1000 && numero <= 1000000);
            numeros.insert(numero);
        }
        QVERIFY(numeros.size() > 1);
    }

    void respuestaTardia_terminaLosReintentos()
    {
        Escenario e;
        e.responder("/p.php", "ya llego completa");
        e.responder("/p.php", "no", 2);
        frmCargador cargador(e.entorno);
        QCOMPARE(cargador.conectar(e.demo.base() + u"/p.php"_s, {}, true), u"ya llego completa"_s);
        QCOMPARE(e.demo.peticiones().size(), 3);
    }

    void intentoFallido_dejaLaRespuestaAnterior()
    {
        Escenario e;
        Falla corte;
        corte.clase = Falla::CierraAntes;
        e.demo.fallar("/p.php", corte);
        e.responder("/p.php", "corta", 1);
        frmCargador cargador(e.entorno);
        QCOMPARE(cargador.conectar(e.demo.base() + u"/p.php"_s, {}, true), u"corta"_s);
        QCOMPARE(e.demo.peticiones().size(), 4);
    }

    void falla_daTextoVacioTrasCuatroIntentos_data()
    {
        QTest::addColumn<int>("clase");
        QTest::newRow("closed before the reply") << int(Falla::CierraAntes);
        QTest::newRow("cut off in the middle") << int(Falla::CierraEnMedio);
        QTest::newRow("garbage") << int(Falla::Basura);
        QTest::newRow("empty body") << int(Falla::Vacia);
    }
    void falla_daTextoVacioTrasCuatroIntentos()
    {
        QFETCH(int, clase);
        Escenario e;
        Falla falla;
        falla.clase = static_cast<Falla::Clase>(clase);
        e.demo.fallar("salones.php", falla);
        frmCargador cargador(e.entorno);
        QCOMPARE(cargador.conectar(e.demo.base() + u"/querys/tessarin/salones.php"_s,
                                   u"idcolegio=123&tipo=html"_s, true),
                 QString());
        QCOMPARE(e.demo.peticiones().size(), 4);
    }

    void conexionRechazada_daTextoVacio()
    {
        QString muerta;
        {
            const ServicioDemo otro(Escenario::pequena());
            muerta = otro.base();
        }
        Escenario e;
        frmCargador cargador(e.entorno);
        QCOMPARE(cargador.conectar(muerta + u"/p.php"_s, {}, true), QString());
    }

    void cadaByte_llegaComoSuCaracterDelCodigo1252()
    {
        QByteArray todos;
        for (int i = 0; i < 256; ++i)
            todos.append(static_cast<char>(i));
        Escenario e;
        e.responder("/p.php", todos);
        frmCargador cargador(e.entorno);
        const QString texto = cargador.conectar(e.demo.base() + u"/p.php"_s, {}, false);
        QCOMPARE(texto.size(), 256);
        QCOMPARE(texto[0x00], QChar(0));
        QCOMPARE(texto[0x80], QChar(0x20AC));
        QCOMPARE(texto[0x81], QChar(0x81));
        QCOMPARE(texto[0xAE], QChar(0xAE));
        QCOMPARE(texto[0xF1], QChar(0xF1));
        QCOMPARE(texto[0xFF], QChar(0xFF));
    }

    void paginaUtf8_llegaDeformada()
    {
        Escenario e;
        e.responder("/p.php", "A\xC3\xB1o escolar");
        frmCargador cargador(e.entorno);
        QCOMPARE(cargador.conectar(e.demo.base() + u"/p.php"_s, {}, false),
                 u"A\u00C3\u00B1o escolar"_s);
    }

    void parametros_vanSinEscaparMasQueLoImposible()
    {
        Escenario e;
        e.responder("/p.php", "respuesta larga");
        frmCargador cargador(e.entorno);
        cargador.conectar(e.demo.base() + u"/p.php"_s, u"f=http://h/a b&g=á&h=x=y//..%20"_s, false);
        QCOMPARE(e.demo.peticiones().first().destino,
                 QByteArray("/p.php?f=http://h/a%20b&g=%E1&h=x=y//..%20"));
    }
};

QTEST_MAIN(tst_frmCargador)
#include "tst_frmCargador.moc"
