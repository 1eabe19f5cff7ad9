// SPDX-License-Identifier: MIT
#include "worker/Ausencia.h"

#include <QtTest>

using namespace std::chrono_literals;

class TstAusencia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void serverThere_isAskedAtOnce();
    void absence_isToldOnce();
    void absence_isLookedIntoEverySecond();
    void document_hasItsWholeWait();
    void serverBack_startsTheWaitAnew();
};

namespace {

constexpr Ausencia::Momento cero{};
constexpr auto ninguno = Ausencia::Momento::min();

} // namespace

void TstAusencia::serverThere_isAskedAtOnce()
{
    const Ausencia ausencia(300s);
    QVERIFY(ausencia.proximoIntento() == ninguno);
    QVERIFY(ausencia.vencidos(cero) == ninguno);
}

void TstAusencia::absence_isToldOnce()
{
    Ausencia ausencia(300s);
    QVERIFY(ausencia.notar(cero));
    QVERIFY(!ausencia.notar(cero + 1s));
    ausencia.terminar();
    QVERIFY(ausencia.notar(cero + 2s));
}

void TstAusencia::absence_isLookedIntoEverySecond()
{
    Ausencia ausencia(300s);
    ausencia.notar(cero);
    QVERIFY(ausencia.proximoIntento() == cero + 1s);
    ausencia.notar(cero + 5s);
    QVERIFY(ausencia.proximoIntento() == cero + 6s);
    ausencia.terminar();
    QVERIFY(ausencia.proximoIntento() == ninguno);
}

void TstAusencia::document_hasItsWholeWait()
{
    Ausencia ausencia(300s);
    ausencia.notar(cero);
    ausencia.notar(cero + 299s);
    QVERIFY(ausencia.vencidos(cero + 299s) == ninguno); // not even those that came long before
    ausencia.notar(cero + 300s);
    QVERIFY(ausencia.vencidos(cero + 300s) == cero); // and none that came in the meantime
    QVERIFY(ausencia.vencidos(cero + 420s) == cero + 120s);
}

void TstAusencia::serverBack_startsTheWaitAnew()
{
    Ausencia ausencia(300s);
    ausencia.notar(cero);
    ausencia.terminar();
    ausencia.notar(cero + 299s);
    QVERIFY(ausencia.vencidos(cero + 400s) == ninguno);
}

QTEST_GUILESS_MAIN(TstAusencia)
#include "tst_ausencia.moc"
