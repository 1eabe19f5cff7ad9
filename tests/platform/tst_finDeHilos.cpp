// SPDX-License-Identifier: MIT
// The objects that a thread has for itself are whole when they are ended with it.
#include <QTest>

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

namespace {

constexpr int marca = 0x2010;

std::atomic<int> enteros = 0;
std::atomic<int> rotos = 0;

struct Propio {
    std::array<int, 16> numeros = {};

    Propio() { numeros.fill(marca); }
    ~Propio()
    {
        const bool entero =
            std::all_of(numeros.begin(), numeros.end(), [](int numero) { return numero == marca; });
        ++(entero ? enteros : rotos);
    }
    Propio(const Propio &) = delete;
    Propio &operator=(const Propio &) = delete;
};

int usar()
{
    thread_local Propio propio;
    return propio.numeros.front();
}

} // namespace

class tst_finDeHilos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void objetosDeUnHilo_siguenEnterosAlTerminar()
    {
        constexpr int cuantos = 50;
        for (int i = 0; i < cuantos; ++i) {
            std::jthread hilo([] { QCOMPARE(usar(), marca); });
        }
        QCOMPARE(rotos, 0);
        QCOMPARE(enteros, cuantos);
    }
};

QTEST_GUILESS_MAIN(tst_finDeHilos)
#include "tst_finDeHilos.moc"
