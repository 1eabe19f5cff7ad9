// SPDX-License-Identifier: MIT
#include "escenario/Escenario.h"
#include "service/tomarValores.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_tomarValores : public QObject {
    Q_OBJECT
private:
    static void vaciarSesion(Escenario &e) { e.sesion = {.idColegio = u"ERROR"_s}; }

    static QStringList textos(const Module1 &sesion)
    {
        return {sesion.idColegio,  sesion.anoActual,   sesion.rolUsuario,
                sesion.usaBoleta2, sesion.usaInfoFin2, sesion.usaCertiFin2};
    }

private Q_SLOTS:
    void rol_seComparaExacto_data()
    {
        QTest::addColumn<QString>("respuesta");
        QTest::addColumn<bool>("aceptado");
        QTest::newRow("secretary") << u"12,SECRETARIA"_s << true;
        QTest::newRow("super administrator") << u"12,SUPERADMIN"_s << true;
        QTest::newRow("further fields") << u"12,SECRETARIA,x,y"_s << true;
        QTest::newRow("lower case") << u"12,secretaria"_s << false;
        QTest::newRow("teacher") << u"12,DOCENTE"_s << false;
        QTest::newRow("blank after the role") << u"12,SECRETARIA "_s << false;
        QTest::newRow("error in lower case") << u"error"_s << false;
        QTest::newRow("empty") << QString() << false;
    }
    void rol_seComparaExacto()
    {
        QFETCH(QString, respuesta);
        QFETCH(bool, aceptado);
        Escenario e;
        vaciarSesion(e);
        QCOMPARE(tomarValores(e.entorno, respuesta), aceptado);
        QCOMPARE(e.sesion.rolUsuario, aceptado ? u"SECRETARIA"_s : QString());
        QCOMPARE(e.sesion.idColegio, aceptado ? u"12"_s : u"ERROR"_s);
        QCOMPARE(e.demo.peticiones().isEmpty(), !aceptado);
    }

    void rolRechazado_dejaLosSeisTextosComoEstaban()
    {
        Escenario e;
        e.sesion = {.idColegio = u"7"_s,
                    .anoActual = u"1999"_s,
                    .rolUsuario = u"OTRO"_s,
                    .usaBoleta2 = u"a"_s,
                    .usaInfoFin2 = u"b"_s,
                    .usaCertiFin2 = u"c"_s};
        const QStringList antes = textos(e.sesion);
        QVERIFY(!tomarValores(e.entorno, u"12,DOCENTE,x"_s));
        QCOMPARE(textos(e.sesion), antes);
        QCOMPARE(e.destinos(), QStringList());
    }

    void cadaAjuste_llenaElTextoDeSuNombre()
    {
        Escenario e;
        vaciarSesion(e);
        e.responder("campo=ANOACTUAL", "2031");
        e.responder("campo=USABOLETA2", "boleta");
        e.responder("campo=USAINFOFIN2", "informe");
        e.responder("campo=USACERTIFIN2", "certi");
        QVERIFY(tomarValores(e.entorno, u"12,SUPERADMIN"_s));
        QCOMPARE(textos(e.sesion), QStringList({u"12"_s, u"2031"_s, u"SECRETARIA"_s, u"BOLETA"_s,
                                                u"INFORME"_s, u"certi"_s}));
    }

    void ajustes_sePidenEnSuOrdenConElIdComoVino()
    {
        Escenario e;
        e.responder("campo=", "un valor largo");
        QVERIFY(tomarValores(e.entorno, u"12\r\n,SECRETARIA"_s));
        const QString pagina = u"/querys/tessarin/tomarValor.php?azar=#&idcolegio=12"_s;
        QCOMPARE(
            e.destinos(),
            QStringList({pagina + u"%0D%0A&campo=ANOACTUAL"_s, pagina + u"&campo=USABOLETA2"_s,
                         pagina + u"&campo=USAINFOFIN2"_s, pagina + u"&campo=USACERTIFIN2"_s}));
        QCOMPARE(e.sesion.idColegio, u"12"_s);
    }

    void interruptor_seGuardaComoSuReglaDice_data()
    {
        QTest::addColumn<QByteArray>("respuesta");
        QTest::addColumn<QString>("boletin");
        QTest::addColumn<QString>("certificado");
        QTest::newRow("1 with blanks") << QByteArray(" 1 ") << u"SI"_s << u"1"_s;
        QTest::newRow("si") << QByteArray("si") << u"SI"_s << u"si"_s;
        QTest::newRow("SI") << QByteArray("SI") << u"SI"_s << u"SI"_s;
        QTest::newRow("0") << QByteArray("0") << u"0"_s << u"0"_s;
        QTest::newRow("accented letters") << QByteArray("s\xED") << u"SÍ"_s << u"sí"_s;
        QTest::newRow("1 with a line end") << QByteArray("1\r\n") << u"1\r\n"_s << u"1\r\n"_s;
    }
    void interruptor_seGuardaComoSuReglaDice()
    {
        QFETCH(QByteArray, respuesta);
        QFETCH(QString, boletin);
        QFETCH(QString, certificado);
        Escenario e;
        e.responder("campo=USA", respuesta);
        QVERIFY(tomarValores(e.entorno, u"123,SECRETARIA"_s));
        QCOMPARE(e.sesion.usaBoleta2, boletin);
        QCOMPARE(e.sesion.usaInfoFin2, boletin);
        QCOMPARE(e.sesion.usaCertiFin2, certificado);
    }

    void anoConSaltoYBlancos_quedaSoloElAno()
    {
        Escenario e;
        e.responder("campo=ANOACTUAL", " 2010\r\n");
        QVERIFY(tomarValores(e.entorno, u"123,SECRETARIA"_s));
        QCOMPARE(e.sesion.anoActual, u"2010"_s);
    }

    void ajustesSinRespuesta_quedanVaciosYElRolVale()
    {
        Escenario e;
        Falla falla;
        falla.clase = Falla::CierraAntes;
        e.demo.fallar("tomarValor.php", falla);
        QVERIFY(tomarValores(e.entorno, u"123,SUPERADMIN"_s));
        QCOMPARE(e.sesion.anoActual, QString());
        QCOMPARE(e.sesion.usaBoleta2, QString());
    }
};

QTEST_MAIN(tst_tomarValores)
#include "tst_tomarValores.moc"
