// SPDX-License-Identifier: MIT
#include "worker/Cola.h"

#include <QtTest>

using namespace std::chrono_literals;

class tst_cola : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void dibujadosSinOrden_salenEnOrden();
    void primeroSinDibujar_detieneALosOtros();
    void primeroFallido_saleConSuMotivo();
    void ventajaAgotada_nadaMasQueDibujar();
    void documentoEnEspera_seOfreceHastaQueEmpieza();
    void documentoTardio_vaDetras();
    void retiradoAntesDeSuTurno_daSuRuta();
    void dibujadoOtraVez_conservaSuLugar();
    void alAbandonar_quedaLoQueLlegoATiempo();
    void alAbandonar_quedaElQueSeDibuja();
    void alAbandonar_seNombraElTrabajoDudoso();
};

void tst_cola::dibujadosSinOrden_salenEnOrden()
{
    Cola cola(10);
    for (const char *ruta : {"/a", "/b", "/c"})
        cola.agregar(ruta);
    cola.dibujado(2, "2.pdf");
    cola.dibujado(1, "1.pdf");
    cola.dibujado(0, "0.pdf");
    for (const std::string esperada : {"/a", "/b", "/c"}) {
        QVERIFY(cola.primero());
        QCOMPARE(cola.retirar(), esperada);
    }
    QVERIFY(cola.vacia());
}

void tst_cola::primeroSinDibujar_detieneALosOtros()
{
    Cola cola(10);
    cola.agregar("/a");
    cola.agregar("/b");
    cola.empezado(0);
    cola.dibujado(1, "1.pdf");
    QVERIFY(!cola.primero());
    cola.dibujado(0, "0.pdf");
    QCOMPARE(cola.primero()->pdf, std::string("0.pdf"));
}

void tst_cola::primeroFallido_saleConSuMotivo()
{
    Cola cola(10);
    cola.agregar("/a");
    cola.fallido(0, "no existe");
    QCOMPARE(cola.primero()->estado, Cola::Estado::Fallido);
    QCOMPARE(cola.primero()->motivo, std::string("no existe"));
}

void tst_cola::ventajaAgotada_nadaMasQueDibujar()
{
    Cola cola(2);
    for (const char *ruta : {"/a", "/b", "/c"})
        cola.agregar(ruta);
    cola.empezado(0);
    cola.dibujado(1, "1.pdf"); // drawn, but not printed: it still counts
    QVERIFY(!cola.porDibujar());
    QCOMPARE(cola.enEspera(), std::size_t{1});
    cola.dibujado(0, "0.pdf");
    cola.retirar();
    QVERIFY(cola.porDibujar());
    QCOMPARE(cola.porDibujar()->turno, Cola::Turno{2});
}

void tst_cola::documentoEnEspera_seOfreceHastaQueEmpieza()
{
    Cola cola(2);
    cola.agregar("/a");
    QCOMPARE(cola.porDibujar()->ruta, std::string("/a"));
    QCOMPARE(cola.porDibujar()->ruta, std::string("/a"));
    cola.empezado(0);
    QVERIFY(!cola.porDibujar());
}

void tst_cola::documentoTardio_vaDetras()
{
    Cola cola(2);
    cola.agregar("/a");
    cola.dibujado(0, "0.pdf");
    cola.retirar();
    cola.agregar("/b");
    QCOMPARE(cola.porDibujar()->turno, Cola::Turno{1});
    cola.dibujado(1, "1.pdf");
    QCOMPARE(cola.primero()->ruta, std::string("/b"));
}

void tst_cola::retiradoAntesDeSuTurno_daSuRuta()
{
    Cola cola(2);
    cola.agregar("/a");
    QVERIFY(!cola.primero());
    QCOMPARE(cola.retirar(), std::string("/a"));
    QVERIFY(cola.vacia());
}

void tst_cola::dibujadoOtraVez_conservaSuLugar()
{
    Cola cola(2);
    cola.agregar("/a");
    cola.agregar("/b");
    cola.empezado(0);
    QVERIFY(cola.redibujar(0));
    QCOMPARE(cola.porDibujar()->turno, Cola::Turno{0});
    cola.empezado(0);
    QVERIFY(!cola.redibujar(0));
    QVERIFY(!cola.primero()); // still with its renderer, for all that the queue knows
    cola.empezado(1);
    QVERIFY(cola.redibujar(1));
}

void tst_cola::alAbandonar_quedaLoQueLlegoATiempo()
{
    const Cola::Momento cero;
    Cola cola(4);
    cola.agregar("/a", cero);
    cola.agregar("/b", cero + 1s);
    cola.agregar("/c", cero + 2s);
    cola.dibujado(0, "0.pdf");
    QCOMPARE(cola.abandonar(cero + 1s, "no atiende"), std::vector<std::string>{"0.pdf"});
    for (int i = 0; i < 2; ++i) {
        QVERIFY(cola.primero());
        QCOMPARE(cola.primero()->motivo, std::string("no atiende"));
        cola.retirar();
    }
    QVERIFY(!cola.primero());
    QCOMPARE(cola.porDibujar()->turno, Cola::Turno{2});
}

void tst_cola::alAbandonar_quedaElQueSeDibuja()
{
    Cola cola(2);
    cola.agregar("/a");
    cola.empezado(0);
    QVERIFY(cola.abandonar({}, "no atiende").empty());
    cola.dibujado(0, "0.pdf");
    QCOMPARE(cola.primero()->estado, Cola::Estado::Dibujado);
}

void tst_cola::alAbandonar_seNombraElTrabajoDudoso()
{
    Cola cola(2);
    cola.agregar("/a");
    cola.dibujado(0, "0.pdf");
    cola.enDuda(0, 12);
    QCOMPARE(cola.primero()->trabajo, 12);
    QCOMPARE(cola.abandonar({}, "no atiende").size(), std::size_t{1});
    QCOMPARE(cola.primero()->motivo,
             std::string("no atiende (puede estar en la cola como trabajo 12)"));
}

QTEST_GUILESS_MAIN(tst_cola)
#include "tst_cola.moc"
