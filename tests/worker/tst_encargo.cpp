// SPDX-License-Identifier: MIT
#include "worker/Encargo.h"

#include <QtTest>

#include <array>
#include <csignal>
#include <unistd.h>

using namespace std::chrono_literals;

class tst_encargo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void respuesta_vuelveEntera();
    void hijoQueMuere_noDaRespuesta();
    void hijoQueMuere_dejaLoQueDijo();
    void hijoQueCuelga_seVaConElEncargo();
};

namespace {

constexpr auto guarda = 10s; // only against a test that would never end

auto tope()
{
    return Encargo::Reloj::now() + guarda;
}

} // namespace

void tst_encargo::respuesta_vuelveEntera()
{
    const std::string larga(3000, 'x');
    const auto encargo = Encargo::empezar([&](const auto &) { return larga; }, tope());
    QVERIFY(encargo);
    QTRY_VERIFY(encargo->leer());
    QCOMPARE(encargo->respuesta(), larga);
}

void tst_encargo::hijoQueMuere_noDaRespuesta()
{
    const auto encargo = Encargo::empezar(
        [](const auto &) -> std::string {
            raise(SIGKILL);
            return "never";
        },
        tope());
    QTRY_VERIFY(encargo->leer());
    QCOMPARE(encargo->respuesta(), std::string());
}

void tst_encargo::hijoQueMuere_dejaLoQueDijo()
{
    const auto encargo = Encargo::empezar(
        [](const auto &decir) -> std::string {
            decir("begun");
            raise(SIGKILL);
            return "never";
        },
        tope());
    QTRY_VERIFY(encargo->leer());
    QCOMPARE(encargo->respuesta(), std::string("begun"));
}

void tst_encargo::hijoQueCuelga_seVaConElEncargo()
{
    // The child holds the writing end of this pipe: it reads as ended once the child is gone.
    std::array<int, 2> tubo{};
    QCOMPARE(pipe(tubo.data()), 0);
    auto encargo = Encargo::empezar(
        [](const auto &) -> std::string {
            for (;;)
                pause();
        },
        tope());
    close(tubo[1]);
    QVERIFY(!encargo->leer());
    encargo.reset();
    char byte = 0;
    QCOMPARE(read(tubo[0], &byte, 1), ssize_t{0});
    close(tubo[0]);
}

QTEST_GUILESS_MAIN(tst_encargo)
#include "tst_encargo.moc"
