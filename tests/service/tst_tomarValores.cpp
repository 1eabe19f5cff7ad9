// SPDX-License-Identifier: MIT
#include "escenario/Escenario.h"
#include "service/tomarValores.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_tomarValores : public QObject {
    Q_OBJECT
private:
    static void vaciarSesion(Escenario &e) { e.sesion = {.idColegio = QStringLiteral("ERROR")}; }

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
        QTest::newRow("secretary") << QStringLiteral("12,SECRETARIA") << true;
        QTest::newRow("super administrator") << QStringLiteral("12,SUPERADMIN") << true;
        QTest::newRow("further fields") << QStringLiteral("12,SECRETARIA,x,y") << true;
        QTest::newRow("lower case") << QStringLiteral("12,secretaria") << false;
        QTest::newRow("teacher") << QStringLiteral("12,DOCENTE") << false;
        QTest::newRow("blank after the role") << QStringLiteral("12,SECRETARIA ") << false;
        QTest::newRow("error in lower case") << QStringLiteral("error") << false;
        QTest::newRow("empty") << QString() << false;
    }
    void rol_seComparaExacto()
    {
        QFETCH(QString, respuesta);
        QFETCH(bool, aceptado);
        Escenario e;
        vaciarSesion(e);
        QCOMPARE(tomarValores(e.entorno, respuesta), aceptado);
        QCOMPARE(e.sesion.rolUsuario, aceptado ? QStringLiteral("SECRETARIA") : QString());
        QCOMPARE(e.sesion.idColegio, aceptado ? QStringLiteral("12") : QStringLiteral("ERROR"));
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
        QVERIFY(tomarValores(e.entorno, QStringLiteral("12\r\n,SECRETARIA")));
        const QString pagina =
            QStringLiteral("/querys/tessarin/tomarValor.php?azar=#&idcolegio=12");
        QCOMPARE(e.destinos(), QStringList({pagina + QStringLiteral("%0D%0A&campo=ANOACTUAL"),
                                            pagina + QStringLiteral("&campo=USABOLETA2"),
                                            pagina + QStringLiteral("&campo=USAINFOFIN2"),
                                            pagina + QStringLiteral("&campo=USACERTIFIN2")}));
        QCOMPARE(e.sesion.idColegio, QStringLiteral("12"));
    }

    void interruptor_seGuardaComoSuReglaDice_data()
    {
        QTest::addColumn<QByteArray>("respuesta");
        QTest::addColumn<QString>("boletin");
        QTest::addColumn<QString>("certificado");
        QTest::newRow("1 with blanks")
            << QByteArray(" 1 ") << QStringLiteral("SI") << QStringLiteral("1");
        QTest::newRow("si") << QByteArray("si") << QStringLiteral("SI") << QStringLiteral("si");
        QTest::newRow("SI") << QByteArray("SI") << QStringLiteral("SI") << QStringLiteral("SI");
        QTest::newRow("0") << QByteArray("0") << QStringLiteral("0") << QStringLiteral("0");
        QTest::newRow("accented letters")
            << QByteArray("s\xED") << QStringLiteral("SÍ") << QStringLiteral("sí");
        QTest::newRow("1 with a line end")
            << QByteArray("1\r\n") << QStringLiteral("1\r\n") << QStringLiteral("1\r\n");
    }
    void interruptor_seGuardaComoSuReglaDice()
    {
        QFETCH(QByteArray, respuesta);
        QFETCH(QString, boletin);
        QFETCH(QString, certificado);
        Escenario e;
        e.responder("campo=USA", respuesta);
        QVERIFY(tomarValores(e.entorno, QStringLiteral("123,SECRETARIA")));
        QCOMPARE(e.sesion.usaBoleta2, boletin);
        QCOMPARE(e.sesion.usaInfoFin2, boletin);
        QCOMPARE(e.sesion.usaCertiFin2, certificado);
    }

    void anoConSaltoYBlancos_quedaSoloElAno()
    {
        Escenario e;
        e.responder("campo=ANOACTUAL", " 2010\r\n");
        QVERIFY(tomarValores(e.entorno, QStringLiteral("123,SECRETARIA")));
        QCOMPARE(e.sesion.anoActual, QStringLiteral("2010"));
    }

    void ajustesSinRespuesta_quedanVaciosYElRolVale()
    {
        Escenario e;
        Falla falla;
        falla.clase = Falla::CierraAntes;
        e.demo.fallar("tomarValor.php", falla);
        QVERIFY(tomarValores(e.entorno, QStringLiteral("123,SUPERADMIN")));
        QCOMPARE(e.sesion.anoActual, QString());
        QCOMPARE(e.sesion.usaBoleta2, QString());
    }
};

QTEST_MAIN(tst_tomarValores)
#include "tst_tomarValores.moc"
