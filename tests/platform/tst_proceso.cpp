// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_proceso : public QObject {
    Q_OBJECT

private:
    static QString programa()
    {
        return QCoreApplication::applicationDirPath() + u"/"_s + QStringLiteral(PROGRAMA);
    }

private Q_SLOTS:
    void argumentosYSalidas_talComoSon()
    {
        const QStringList argumentos = {
            u"uno"_s,    u"con  blancos"_s,   u"Ñandú"_s,  u"Ω 中文"_s,  u""_s,
            u"a\"b\\"_s, u"C:\\Quorvela\\"_s, u"--html"_s, u"100% & ^"_s};
        QProcess proceso;
        proceso.start(programa(), argumentos);
        QVERIFY(proceso.waitForFinished(60000));
        QCOMPARE(proceso.exitCode(), 0);
        // With no line ends of the system's own.
        QCOMPARE(QString::fromUtf8(proceso.readAllStandardOutput()),
                 argumentos.join(u'\n') + u"\ndicho\n"_s);
        QCOMPARE(proceso.readAllStandardError(), QByteArray("fin\n\n"));
    }

    void sinArgumentos_ninguno()
    {
        QProcess proceso;
        proceso.start(programa(), QStringList());
        QVERIFY(proceso.waitForFinished(60000));
        QCOMPARE(proceso.readAllStandardOutput(), QByteArray("dicho\n"));
    }

    // What somebody has put beside the program is no library of the system's.
    void bibliotecaJuntoAlPrograma_noSeToma()
    {
        const QString propia = qEnvironmentVariable("SystemRoot") + u"/system32/version.dll"_s;
        if (!QFile::exists(propia))
            QSKIP("this system never looks beside the program");
        const QString ajena =
            QCoreApplication::applicationDirPath() + u"/parvanel-prueba-ajena.dll"_s;
        static_cast<void>(QFile::remove(ajena)); // of a run that was broken off
        QVERIFY(QFile::copy(propia, ajena));
        const auto hallada = [](const QString &cual) {
            return QProcess::execute(programa(), {u"--biblioteca"_s, cual}) == 0;
        };
        QVERIFY(hallada(QDir::toNativeSeparators(ajena))); // it is one, and could be had
        QVERIFY(!hallada(u"parvanel-prueba-ajena.dll"_s));
        QVERIFY(hallada(u"version.dll"_s));
        QVERIFY(QFile::remove(ajena));
    }
};

QTEST_GUILESS_MAIN(tst_proceso)
#include "tst_proceso.moc"
