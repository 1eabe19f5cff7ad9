// SPDX-License-Identifier: MIT
#include "Paciencia.h"

#include <QTest>

#include <vector>

using Milisegundos = Paciencia::Milisegundos;

namespace {

// A clock that goes by what is slept, and by what each try takes.
class RelojDePrueba {
public:
    Paciencia::Reloj reloj()
    {
        return {[this] { return m_ahora; },
                [this](Milisegundos cuanto) {
                    pausas.push_back(cuanto);
                    m_ahora += cuanto;
                }};
    }
    void pasa(Milisegundos cuanto) { m_ahora += cuanto; }

    std::vector<Milisegundos> pausas;

private:
    Milisegundos m_ahora{123'456};
};

int esperas(Paciencia &paciencia)
{
    int cuantas = 0;
    while (cuantas < 10'000 && paciencia.esperar())
        ++cuantas;
    return cuantas;
}

} // namespace

class tst_Paciencia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void unSegundo_yNoMas();
    void elSegundo_empiezaConLaPrimeraEspera();
    void intentosLentos_cuentan();
    void ultimaEspera_noPasaDelSegundo();
    void agotada_noVuelveAEsperar();
    void relojDelSistema_duermeLoPedido();
};

void tst_Paciencia::unSegundo_yNoMas()
{
    RelojDePrueba reloj;
    Paciencia paciencia(reloj.reloj());
    QCOMPARE(esperas(paciencia), 100);
    QCOMPARE(reloj.pausas, std::vector<Milisegundos>(100, Milisegundos(10)));
}

// What is opened without a wait costs nothing of it.
void tst_Paciencia::elSegundo_empiezaConLaPrimeraEspera()
{
    RelojDePrueba reloj;
    Paciencia paciencia(reloj.reloj());
    reloj.pasa(Milisegundos(5000));
    QCOMPARE(esperas(paciencia), 100);
}

void tst_Paciencia::intentosLentos_cuentan()
{
    RelojDePrueba reloj;
    Paciencia paciencia(reloj.reloj());
    QVERIFY(paciencia.esperar());
    reloj.pasa(Milisegundos(500));
    QVERIFY(paciencia.esperar());
    reloj.pasa(Milisegundos(480));
    QVERIFY(!paciencia.esperar());
}

void tst_Paciencia::ultimaEspera_noPasaDelSegundo()
{
    RelojDePrueba reloj;
    Paciencia paciencia(reloj.reloj());
    QVERIFY(paciencia.esperar());
    reloj.pasa(Milisegundos(987));
    QVERIFY(paciencia.esperar());
    QCOMPARE(reloj.pausas.back(), Milisegundos(3));
    QVERIFY(!paciencia.esperar());
}

void tst_Paciencia::agotada_noVuelveAEsperar()
{
    RelojDePrueba reloj;
    Paciencia paciencia(reloj.reloj());
    QCOMPARE(esperas(paciencia), 100);
    QCOMPARE(esperas(paciencia), 0);
    QCOMPARE(reloj.pausas.size(), std::size_t(100));
}

void tst_Paciencia::relojDelSistema_duermeLoPedido()
{
    const Paciencia::Reloj reloj = Paciencia::relojDelSistema();
    const Milisegundos antes = reloj.ahora();
    reloj.dormir(Milisegundos(30));
    QVERIFY(reloj.ahora() - antes >= Milisegundos(29)); // both ends are cut to whole ones
}

QTEST_GUILESS_MAIN(tst_Paciencia)
#include "tst_Paciencia.moc"
