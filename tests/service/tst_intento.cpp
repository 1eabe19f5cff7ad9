// SPDX-License-Identifier: MIT
// One attempt of a request, step by step, and the loader's timers around it. The random generator
// and the HTTP client are this test's own: they note their calls among the turns of the event
// loop, and nothing else turns it.
#include "escenario/Escenario.h"
#include "escenario/HttpInmediato.h"
#include "escenario/RelojesQuietos.h"
#include "escenario/Turnos.h"
#include "service/frmCargador.h"

#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

QStringList pasos;
std::int32_t sorteados = 0;

const QString pagina = u"http://s/p.php"_s;
const QByteArray larga = "una respuesta larga";

} // namespace

void Azar::sembrar()
{
    pasos.append(u"siembra"_s);
}

double Azar::siguiente()
{
    return 0;
}

std::int32_t Azar::numero()
{
    pasos.append(u"sorteo"_s);
    return ++sorteados;
}

std::int32_t Azar::numeroDe(double)
{
    return 0;
}

class tst_intento : public QObject {
    Q_OBJECT
private:
    RelojesQuietos m_quietos;

    static QTimer *reloj(const frmCargador &cargador, int milisegundos)
    {
        const auto relojes = cargador.findChildren<QTimer *>();
        for (QTimer *uno : relojes) {
            if (uno->interval() == milisegundos)
                return uno;
        }
        qFatal("the loader has no timer of %d ms", milisegundos);
    }

    // Ticks without their waiting.
    static void marcar(const frmCargador &cargador, int milisegundos, int veces)
    {
        for (int vez = 0; vez < veces; ++vez)
            QMetaObject::invokeMethod(reloj(cargador, milisegundos), "timeout",
                                      Qt::DirectConnection, QGenericArgument());
    }

private Q_SLOTS:
    void init()
    {
        pasos.clear();
        sorteados = 0;
    }

    void intento_siembraSorteaCedePideYCede_data()
    {
        QTest::addColumn<bool>("usarAzar");
        QTest::addColumn<QString>("pedido");
        QTest::newRow("with the number") << true << u"http://s/p.php?azar=1&a=1"_s;
        QTest::newRow("without it, drawn all the same") << false << u"http://s/p.php?a=1"_s;
    }
    void intento_siembraSorteaCedePideYCede()
    {
        QFETCH(bool, usarAzar);
        QFETCH(QString, pedido);
        Escenario e;
        const HttpInmediato http([](const QByteArray &direccion) {
            pasos.append(QString::fromLatin1(direccion));
            return larga;
        });
        frmCargador cargador(e.entorno);
        const Turnos turnos([] { pasos.append(u"turno"_s); });
        cargador.conectar(pagina, u"a=1"_s, usarAzar);
        QCOMPARE(pasos, QStringList({u"siembra"_s, u"sorteo"_s, u"turno"_s, pedido, u"turno"_s}));
    }

    void cadaIntento_esEnteroYLlevaSuNumero()
    {
        Escenario e;
        const HttpInmediato http([](const QByteArray &direccion) {
            pasos.append(QString::fromLatin1(direccion));
            return std::nullopt;
        });
        frmCargador cargador(e.entorno);
        const Turnos turnos([] { pasos.append(u"turno"_s); });
        QCOMPARE(cargador.conectar(pagina, {}, true), QString());
        QStringList esperados;
        for (int intento = 1; intento <= 4; ++intento)
            esperados += {u"siembra"_s, u"sorteo"_s, u"turno"_s,
                          u"http://s/p.php?azar=%1&"_s.arg(intento), u"turno"_s};
        QCOMPARE(pasos, esperados);
    }

    void cargador_estaAbiertoEnCadaPedidoYSoloEntonces()
    {
        Escenario e;
        frmCargador cargador(e.entorno);
        QList<bool> alPedir;
        const HttpInmediato http([&](const QByteArray &) {
            alPedir.append(cargador.abierto() && reloj(cargador, 10)->isActive());
            return larga;
        });
        const auto abierto = [&] {
            return cargador.abierto() || reloj(cargador, 10)->isActive();
        };
        QVERIFY(!abierto());
        cargador.conectar(pagina, {}, true);
        QVERIFY(!abierto());
        cargador.conectar(pagina, {}, true);
        QVERIFY(!abierto());
        QCOMPARE(alPedir, QList<bool>({true, true}));
    }

    void segundoReloj_soloCede()
    {
        Escenario e;
        frmCargador cargador(e.entorno);
        int turnos = 0;
        const HttpInmediato http([&](const QByteArray &) {
            const Turnos contados([&] { ++turnos; });
            marcar(cargador, 10, 3);
            return larga;
        });
        cargador.conectar(pagina, {}, true);
        QCOMPARE(turnos, 3);
        QCOMPARE(cargador.ticks(), 0);
        QCOMPARE(pasos, QStringList({u"siembra"_s, u"sorteo"_s}));
    }

    void cuenta_sigueDeUnaLlamadaALaOtra()
    {
        Escenario e;
        frmCargador cargador(e.entorno);
        const HttpInmediato http([&](const QByteArray &) {
            marcar(cargador, 1000, 5);
            return larga;
        });
        cargador.conectar(pagina, {}, true);
        QCOMPARE(cargador.ticks(), 5);
        cargador.conectar(pagina, {}, true);
        QCOMPARE(cargador.ticks(), 10);
    }

    void cuenta_vuelveACeroConUnaRespuestaCorta_data()
    {
        QTest::addColumn<QByteArray>("corta");
        QTest::newRow("asked for again") << QByteArray("1");
        QTest::newRow("a word of the service") << QByteArray("SI");
    }
    void cuenta_vuelveACeroConUnaRespuestaCorta()
    {
        QFETCH(QByteArray, corta);
        Escenario e;
        frmCargador cargador(e.entorno);
        QByteArray respuesta = larga;
        const HttpInmediato http([&](const QByteArray &) {
            marcar(cargador, 1000, 5);
            return respuesta;
        });
        cargador.conectar(pagina, {}, true);
        QCOMPARE(cargador.ticks(), 5);
        respuesta = corta;
        cargador.conectar(pagina, {}, true);
        QCOMPARE(cargador.ticks(), 0);
    }

    void masDeNoventaTicks_cierranSinCortarElPedidoYElProximoAbreDeNuevo()
    {
        Escenario e;
        frmCargador cargador(e.entorno);
        QList<bool> abierto;
        int ticks = 45;
        const HttpInmediato http([&](const QByteArray &) {
            marcar(cargador, 1000, ticks);
            abierto.append(cargador.abierto());
            marcar(cargador, 1000, 1);
            abierto.append(cargador.abierto());
            return larga;
        });
        cargador.conectar(pagina, {}, true); // 46 of them
        ticks = 44;
        QCOMPARE(cargador.conectar(pagina, {}, true), QString::fromLatin1(larga));
        QCOMPARE(abierto, QList<bool>({true, true, true, false}));
        ticks = 0;
        bool deNuevo = false;
        enElProximoTurno(cargador, [&] { deNuevo = cargador.abierto(); });
        cargador.conectar(pagina, {}, true);
        QVERIFY(deNuevo);
    }

    void cierreEnMedioDeUnIntento_elQueSigueAbreDeNuevo()
    {
        Escenario e;
        frmCargador cargador(e.entorno);
        QList<bool> abierto;
        const HttpInmediato http([&](const QByteArray &) {
            abierto.append(cargador.abierto() && reloj(cargador, 10)->isActive());
            if (abierto.size() > 1)
                return larga;
            marcar(cargador, 1000, 91);
            abierto.append(cargador.abierto() || reloj(cargador, 10)->isActive());
            return QByteArray("corta");
        });
        cargador.conectar(pagina, {}, true);
        QCOMPARE(abierto, QList<bool>({true, false, true}));
    }
};

QTEST_MAIN(tst_intento)
#include "tst_intento.moc"
