// SPDX-License-Identifier: MIT
// Jobs off the window's thread.
#include "Tarea.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>
#include <semaphore>

class tst_tarea : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void trabajo_correEnOtroHiloYEntregaEnEste()
    {
        Tarea tarea;
        std::thread::id donde;
        std::optional<std::thread::id> entregado;
        bool libre = false;
        tarea.empezar([&](const std::stop_token &, Tarea::Marca &) {
            donde = std::this_thread::get_id();
            return [&] {
                // Whoever takes the delivery may begin the next job.
                libre = !tarea.enCurso();
                entregado = std::this_thread::get_id();
            };
        });
        QVERIFY(tarea.enCurso());
        QTRY_VERIFY_WITH_TIMEOUT(entregado.has_value(), 60000);
        QVERIFY(libre);
        QCOMPARE(*entregado == std::this_thread::get_id(), true);
        QCOMPARE(donde == *entregado, false);
    }

    void marcas_lleganMientrasTrabaja()
    {
        Tarea tarea;
        std::binary_semaphore visto(0);
        QSignalSpy avances(&tarea, &Tarea::avanzo);
        QSignalSpy fines(&tarea, &Tarea::termino);
        tarea.empezar([&](const std::stop_token &, Tarea::Marca &marca) -> Tarea::Entrega {
            marca.poner(3, 7);
            visto.acquire();
            return [] {
            };
        });
        const QVariantList esperado{qint64(3), qint64(7)};
        QTRY_VERIFY_WITH_TIMEOUT(avances.contains(esperado), 60000);
        QCOMPARE(fines.size(), 0);
        visto.release();
        QTRY_COMPARE_WITH_TIMEOUT(fines.size(), 1, 60000);
    }

    void detener_lleganLasNoticiasDelFinal()
    {
        Tarea tarea;
        std::optional<bool> detenido;
        tarea.empezar([&](const std::stop_token &parar, Tarea::Marca &) -> Tarea::Entrega {
            while (!parar.stop_requested())
                std::this_thread::yield();
            return [&detenido, parar] {
                detenido = parar.stop_requested();
            };
        });
        QVERIFY(!tarea.terminaEn(std::chrono::milliseconds(0)));
        tarea.detener();
        QVERIFY(tarea.terminaEn(std::chrono::minutes(1)));
        QVERIFY(!detenido); // not before the loop turns
        QTRY_VERIFY_WITH_TIMEOUT(detenido.has_value(), 60000);
        QCOMPARE(*detenido, true);
    }

    void tareaQueSeVa_detieneYNoEntrega()
    {
        bool entregado = false;
        std::atomic<bool> terminado = false;
        {
            Tarea tarea;
            tarea.empezar([&](const std::stop_token &parar, Tarea::Marca &) -> Tarea::Entrega {
                while (!parar.stop_requested())
                    std::this_thread::yield();
                terminado = true;
                return [&entregado] {
                    entregado = true;
                };
            });
        }
        QVERIFY(terminado);
        QCoreApplication::processEvents();
        QVERIFY(!entregado);
    }
};

QTEST_GUILESS_MAIN(tst_tarea)
#include "tst_tarea.moc"
