// SPDX-License-Identifier: MIT
// The programs take no command line: what stands on it reaches neither them nor their library.
#include "enMarcha.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_argumentos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void opcionesDeLaBiblioteca_noLaAlcanzan_data()
    {
        QTest::addColumn<QString>("programa");
        QTest::newRow("parvanel") << QStringLiteral(PROGRAMA);
        QTest::newRow("parvanel-demo") << QStringLiteral(PROGRAMA_DEMO);
    }
    void opcionesDeLaBiblioteca_noLaAlcanzan()
    {
        QFETCH(QString, programa);
        QProcess proceso;
        proceso.start(programa, {u"-platform"_s, u"ninguna"_s});
        QVERIFY(proceso.waitForStarted());
        // With the option taken, the process ends for want of that plugin.
        QTRY_VERIFY_WITH_TIMEOUT(
            enMarcha(proceso.processId()) || proceso.state() == QProcess::NotRunning, 60000);
        QCOMPARE(proceso.state(), QProcess::Running);
        QVERIFY(enMarcha(proceso.processId()));
        proceso.kill();
        QVERIFY(proceso.waitForFinished());
    }
};

QTEST_GUILESS_MAIN(tst_argumentos)
#include "tst_argumentos.moc"
