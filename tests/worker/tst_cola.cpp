#include "worker/Cola.h"

#include <QtTest>

class TstCola : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void drawnOutOfOrder_comesOutInOrder();
    void headStillDrawing_holdsUpTheOthers();
    void failedHead_comesOutWithItsReason();
    void headStartUsedUp_nothingMoreToDraw();
    void waitingDocument_isOfferedUntilItIsBegun();
    void lateDocument_goesBehind();
    void retiredBeforeItsTurn_givesItsPath();
};

void TstCola::drawnOutOfOrder_comesOutInOrder()
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

void TstCola::headStillDrawing_holdsUpTheOthers()
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

void TstCola::failedHead_comesOutWithItsReason()
{
    Cola cola(10);
    cola.agregar("/a");
    cola.fallido(0, "no existe");
    QCOMPARE(cola.primero()->estado, Cola::Estado::Fallido);
    QCOMPARE(cola.primero()->motivo, std::string("no existe"));
}

void TstCola::headStartUsedUp_nothingMoreToDraw()
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

void TstCola::waitingDocument_isOfferedUntilItIsBegun()
{
    Cola cola(2);
    cola.agregar("/a");
    QCOMPARE(cola.porDibujar()->ruta, std::string("/a"));
    QCOMPARE(cola.porDibujar()->ruta, std::string("/a"));
    cola.empezado(0);
    QVERIFY(!cola.porDibujar());
}

void TstCola::lateDocument_goesBehind()
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

void TstCola::retiredBeforeItsTurn_givesItsPath()
{
    Cola cola(2);
    cola.agregar("/a");
    QVERIFY(!cola.primero());
    QCOMPARE(cola.retirar(), std::string("/a"));
    QVERIFY(cola.vacia());
}

QTEST_GUILESS_MAIN(TstCola)
#include "tst_cola.moc"
