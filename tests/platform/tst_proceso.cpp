// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_proceso : public QObject {
    Q_OBJECT

private:
    static QString programa()
    {
        return QCoreApplication::applicationDirPath() + u"/"_s + QStringLiteral(PROGRAMA);
    }

    struct Dicho {
        int fin = -1;
        QByteArray salida, quejas;
    };
    // By files, as no pipe need be watched then.
    static Dicho correr(const QStringList &argumentos)
    {
        const QTemporaryDir carpeta;
        QProcess proceso;
        proceso.setStandardInputFile(QProcess::nullDevice());
        proceso.setStandardOutputFile(carpeta.filePath(u"salida"_s));
        proceso.setStandardErrorFile(carpeta.filePath(u"quejas"_s));
        proceso.start(programa(), argumentos);
        if (!proceso.waitForFinished(60000))
            return {};
        return {proceso.exitCode(), leer(carpeta.filePath(u"salida"_s)),
                leer(carpeta.filePath(u"quejas"_s))};
    }
    static QByteArray leer(const QString &ruta)
    {
        QFile archivo(ruta);
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
    }

private Q_SLOTS:
    void argumentosYSalidas_talComoSon()
    {
        const QStringList argumentos = {
            u"uno"_s,    u"con  blancos"_s,   u"Ñandú"_s,  u"Ω 中文"_s,  u""_s,
            u"a\"b\\"_s, u"C:\\Quorvela\\"_s, u"--html"_s, u"100% & ^"_s};
        const Dicho dicho = correr(argumentos);
        QCOMPARE(dicho.fin, 0);
        // With no line ends of the system's own.
        QCOMPARE(QString::fromUtf8(dicho.salida), argumentos.join(u'\n') + u"\ndicho\n"_s);
        QCOMPARE(dicho.quejas, QByteArray("fin\n\n"));
    }

    void sinArgumentos_ninguno() { QCOMPARE(correr({}).salida, QByteArray("dicho\n")); }

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
