// SPDX-License-Identifier: MIT
#include "platform/recorrido.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fstream>
#include <map>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;
using recorrido::Clase;
using recorrido::Entrada;

namespace {

void escribir(const QString &ruta, const QByteArray &bytes)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(bytes) != bytes.size())
        qFatal("a file of the test could not be written");
}

std::map<QString, Entrada> todas(const fs::path &carpeta)
{
    std::map<QString, Entrada> halladas;
    const bool enteras = recorrido::porCarpeta(carpeta, [&](const Entrada &una) {
        return halladas.emplace(QString::fromStdU16String(una.nombre.u16string()), una).second;
    });
    if (!enteras)
        qFatal("a folder of the test could not be listed");
    return halladas;
}

} // namespace

class tst_recorrido : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void archivosYCarpetas_conSuLargoYSuMomento()
    {
        const QTemporaryDir lugar;
        escribir(lugar.filePath(u"archivo"_s), "doce letras.");
        QVERIFY(QDir(lugar.path()).mkdir(u"carpeta ñ"_s));
        const QDateTime cuando = QDateTime::fromSecsSinceEpoch(1'000'000'001);
        QFile archivo(lugar.filePath(u"archivo"_s));
        QVERIFY(archivo.open(QIODevice::ReadWrite)
                && archivo.setFileTime(cuando, QFile::FileModificationTime));
        archivo.close();
        const auto halladas = todas(lugar.path().toStdU16String());
        QCOMPARE(halladas.size(), std::size_t{2});
        const Entrada &uno = halladas.at(u"archivo"_s);
        QVERIFY(uno.clase == Clase::Archivo && uno.cierta);
        QCOMPARE(uno.bytes, 12);
        QVERIFY(std::chrono::file_clock::to_sys(uno.escrito)
                == std::chrono::sys_seconds(std::chrono::seconds(1'000'000'001)));
        const Entrada &otra = halladas.at(u"carpeta ñ"_s);
        QVERIFY(otra.clase == Clase::Carpeta && otra.cierta);
        QCOMPARE(otra.bytes, 0);
    }

    void carpetaVacia_noTieneNada()
    {
        const QTemporaryDir lugar;
        QVERIFY(todas(lugar.path().toStdU16String()).empty());
    }

    void carpetaQueNoEsta_noSeRecorre()
    {
        const QTemporaryDir lugar;
        escribir(lugar.filePath(u"archivo"_s), {});
        for (const QString &nombre : {u"no está"_s, u"archivo"_s})
            QVERIFY(!recorrido::porCarpeta(lugar.filePath(nombre).toStdU16String(),
                                           [](const Entrada & /*una*/) { return true; }));
    }

    void quienDiceQueNo_noVeMas()
    {
        const QTemporaryDir lugar;
        for (const QString &nombre : {u"a"_s, u"b"_s, u"c"_s})
            escribir(lugar.filePath(nombre), {});
        int cuantas = 0;
        QVERIFY(recorrido::porCarpeta(lugar.path().toStdU16String(),
                                      [&](const Entrada & /*una*/) { return ++cuantas < 2; }));
        QCOMPARE(cuantas, 2);
    }

    void rutaLarga_seRecorreYSeLee()
    {
        const QTemporaryDir lugar;
        const QString honda = lugar.filePath(QString(120, u'ñ') + u'/' + QString(110, u'x'));
        QVERIFY(QDir().mkpath(honda));
        escribir(honda + u"/José.html"_s, "hola");
        const fs::path carpeta = honda.toStdU16String();
        const auto halladas = todas(carpeta);
        QCOMPARE(halladas.size(), std::size_t{1});
        QCOMPARE(halladas.begin()->first, u"José.html"_s);
        QCOMPARE(halladas.begin()->second.bytes, 4);
        std::ifstream archivo(recorrido::paraAbrir(carpeta / halladas.begin()->second.nombre));
        std::string dicho;
        QVERIFY(std::getline(archivo, dicho));
        QCOMPARE(dicho, std::string("hola"));
        archivo.close(); // what is open cannot be removed everywhere
        QVERIFY(QDir(lugar.path()).removeRecursively());
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
        const auto halladas = todas(raiz);
        QVERIFY(halladas.at(u"roto"_s).clase == Clase::Enlace);
        QVERIFY(halladas.at(u"otra"_s).clase == Clase::Enlace);
        QVERIFY(halladas.at(u"carpeta"_s).clase == Clase::Carpeta);
    }
};

QTEST_GUILESS_MAIN(tst_recorrido)
#include "tst_recorrido.moc"
