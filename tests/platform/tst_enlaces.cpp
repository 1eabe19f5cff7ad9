// SPDX-License-Identifier: MIT
#include "platform/enlaces.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

class tst_enlaces : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void archivosYCarpetas_noLoSon()
    {
        const QTemporaryDir lugar;
        QVERIFY(QFile(lugar.filePath(u"archivo"_s)).open(QIODevice::WriteOnly));
        QVERIFY(QDir(lugar.path()).mkdir(u"carpeta ñ"_s));
        int cuantos = 0;
        for (const auto &entrada : fs::directory_iterator(lugar.path().toStdU16String())) {
            QVERIFY(!enlaces::esEnlace(entrada));
            ++cuantos;
        }
        QCOMPARE(cuantos, 2);
        QVERIFY(
            !enlaces::esEnlace(fs::directory_entry(lugar.filePath(u"no está"_s).toStdU16String())));
    }

    void enlaces_loSon()
    {
        const QTemporaryDir lugar;
        const fs::path raiz(lugar.path().toStdU16String());
        std::error_code error;
        fs::create_symlink("a ninguna parte", raiz / "roto", error);
        if (error == std::errc::function_not_supported)
            QSKIP("this standard library makes no links");
        QVERIFY(!error);
        QVERIFY(QDir(lugar.path()).mkdir(u"carpeta"_s));
        fs::create_directory_symlink("carpeta", raiz / "otra", error);
        QVERIFY(!error);
        QVERIFY(enlaces::esEnlace(fs::directory_entry(raiz / "roto")));
        QVERIFY(enlaces::esEnlace(fs::directory_entry(raiz / "otra")));
        QVERIFY(!enlaces::esEnlace(fs::directory_entry(raiz / "carpeta")));
    }
};

QTEST_GUILESS_MAIN(tst_enlaces)
#include "tst_enlaces.moc"
