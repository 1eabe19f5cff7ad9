// SPDX-License-Identifier: MIT
#include "platform/BarraTareas.h"
#include "platform/BusPrivado.h"
#include "platform/OidoBarra.h"

#include <QGuiApplication>
#include <QTest>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

bool hayBus = false;

} // namespace

class tst_BarraTareas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!hayBus)
            QSKIP("no dbus-daemon to talk to");
        QGuiApplication::setDesktopFileName(u"example.parvanel.prueba"_s);
    }

    void avance_seDiceCuandoCambia();
    void fueraDeMedida_quedaEnSusExtremos();
    void quitar_unaVezYSoloSiSeVeia();
    void sinBus_nada();
};

void tst_BarraTareas::avance_seDiceCuandoCambia()
{
    const OidoBarra oido;
    QVERIFY(oido.oye);
    BarraTareas barra;
    for (const int centesimas : {0, 0, 37, 37, 37, 100})
        barra.mostrar(centesimas);
    barra.quitar();
    QTRY_COMPARE(oido.dichos.size(), 4); // what one sender says arrives in order
    const QList<double> avances = {0, 0.37, 1};
    for (int cual = 0; cual < 3; ++cual) {
        QCOMPARE(oido.dichos[cual].programa, u"application://example.parvanel.prueba.desktop"_s);
        QCOMPARE(oido.dichos[cual].avance, avances[cual]);
        QVERIFY(oido.dichos[cual].visible);
    }
    QVERIFY(!oido.dichos.last().visible);
}

void tst_BarraTareas::fueraDeMedida_quedaEnSusExtremos()
{
    const OidoBarra oido;
    BarraTareas barra;
    barra.mostrar(-5);
    barra.mostrar(140);
    QTRY_COMPARE(oido.dichos.size(), 2);
    QCOMPARE(oido.dichos[0].avance, 0.0);
    QCOMPARE(oido.dichos[1].avance, 1.0);
}

void tst_BarraTareas::quitar_unaVezYSoloSiSeVeia()
{
    const OidoBarra oido;
    BarraTareas barra;
    barra.quitar();
    barra.mostrar(50);
    barra.quitar();
    barra.quitar();
    barra.mostrar(50);
    QTRY_COMPARE(oido.dichos.size(), 3);
    QVERIFY(oido.dichos[0].visible);
    QVERIFY(!oido.dichos[1].visible);
    QVERIFY(oido.dichos[2].visible);
    QCOMPARE(oido.dichos[2].avance, 0.5);
}

void tst_BarraTareas::sinBus_nada()
{
    QVERIFY(bienSinBus());
}

int main(int argc, char *argv[])
{
    if (argc > 1 && std::strcmp(argv[1], "--sin-bus") == 0) {
        const QGuiApplication aplicacion(argc, argv);
        BarraTareas barra;
        barra.mostrar(50);
        barra.quitar();
        return 0;
    }
    const BusPrivado bus; // before anything could ask for another
    hayBus = bus.corre();
    const QGuiApplication aplicacion(argc, argv);
    tst_BarraTareas pruebas;
    return QTest::qExec(&pruebas, argc, argv);
}

#include "tst_BarraTareas.moc"
