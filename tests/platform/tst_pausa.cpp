// SPDX-License-Identifier: MIT
#include "platform/pausa.h"

#include <QTest>
#include <QTimer>

using namespace std::chrono_literals;

class tst_pausa : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pausa_duraLoPedido();
    void pausa_ningunManejadorCorre();
};

void tst_pausa::pausa_duraLoPedido()
{
    const auto inicio = std::chrono::steady_clock::now();
    pausa(50ms);
    QVERIFY(std::chrono::steady_clock::now() - inicio >= 50ms);
}

void tst_pausa::pausa_ningunManejadorCorre()
{
    int veces = 0;
    QTimer reloj;
    connect(&reloj, &QTimer::timeout, this, [&] { ++veces; });
    reloj.start(0ms);
    QMetaObject::invokeMethod(
        this, [&] { ++veces; }, Qt::QueuedConnection);
    pausa(30ms);
    QCOMPARE(veces, 0);
    QTRY_VERIFY(veces >= 2); // both were due, and come as soon as the loop turns
}

QTEST_GUILESS_MAIN(tst_pausa)
#include "tst_pausa.moc"
