// SPDX-License-Identifier: MIT
#include "worker/Ausencia.h"

#include <QtTest>

using namespace std::chrono_literals;

class tst_ausencia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void servidorPresente_sePreguntaAlMomento();
    void ausencia_seDiceUnaVez();
    void ausencia_seMiraCadaSegundo();
    void documento_tieneSuEsperaEntera();
    void servidorQueVuelve_empiezaLaEsperaDeNuevo();
};

namespace {

constexpr Ausencia::Momento cero{};
constexpr auto ninguno = Ausencia::Momento::min();

} // namespace

void tst_ausencia::servidorPresente_sePreguntaAlMomento()
{
    const Ausencia ausencia(300s);
    QVERIFY(ausencia.proximoIntento() == ninguno);
    QVERIFY(ausencia.vencidos(cero) == ninguno);
}

void tst_ausencia::ausencia_seDiceUnaVez()
{
    Ausencia ausencia(300s);
    QVERIFY(ausencia.notar(cero));
    QVERIFY(!ausencia.notar(cero + 1s));
    ausencia.terminar();
    QVERIFY(ausencia.notar(cero + 2s));
}

void tst_ausencia::ausencia_seMiraCadaSegundo()
{
    Ausencia ausencia(300s);
    ausencia.notar(cero);
    QVERIFY(ausencia.proximoIntento() == cero + 1s);
    ausencia.notar(cero + 5s);
    QVERIFY(ausencia.proximoIntento() == cero + 6s);
    ausencia.terminar();
    QVERIFY(ausencia.proximoIntento() == ninguno);
}

void tst_ausencia::documento_tieneSuEsperaEntera()
{
    Ausencia ausencia(300s);
    ausencia.notar(cero);
    ausencia.notar(cero + 299s);
    QVERIFY(ausencia.vencidos(cero + 299s) == ninguno); // not even those that came long before
    ausencia.notar(cero + 300s);
    QVERIFY(ausencia.vencidos(cero + 300s) == cero); // and none that came in the meantime
    QVERIFY(ausencia.vencidos(cero + 420s) == cero + 120s);
}

void tst_ausencia::servidorQueVuelve_empiezaLaEsperaDeNuevo()
{
    Ausencia ausencia(300s);
    ausencia.notar(cero);
    ausencia.terminar();
    ausencia.notar(cero + 299s);
    QVERIFY(ausencia.vencidos(cero + 400s) == ninguno);
}

QTEST_GUILESS_MAIN(tst_ausencia)
#include "tst_ausencia.moc"
