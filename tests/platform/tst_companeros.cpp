// SPDX-License-Identifier: MIT
#include "platform/companeros.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Not the name of a program that is installed here.
const std::string nombre = "parvanel-de-prueba";

QString enTexto(const std::filesystem::path &ruta)
{
    return QString::fromStdString(ruta.string());
}

} // namespace

class tst_companeros : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void programa_elMejorLugar_data();
    void programa_elMejorLugar();
    void sinCarpetaPropia_noEnLaDelMomento();
    void ninguno_elUltimoEsElDeLaInstalacion();
};

void tst_companeros::programa_elMejorLugar_data()
{
    QTest::addColumn<QStringList>("programas");
    QTest::addColumn<QStringList>("sinPermiso");
    QTest::addColumn<QStringList>("carpetas");
    QTest::addColumn<QString>("hallado");
    const auto alLado = u"/bin/parvanel-de-prueba"_s;
    const auto enLibexec = u"/libexec/parvanel/parvanel-de-prueba"_s;
    const QStringList ninguno;
    QTest::newRow("al lado") << QStringList{alLado} << ninguno << ninguno << alLado;
    QTest::newRow("al lado y en libexec")
        << QStringList{alLado, enLibexec} << ninguno << ninguno << alLado;
    QTest::newRow("en libexec") << QStringList{enLibexec} << ninguno << ninguno << enLibexec;
    QTest::newRow("al lado, que no se ejecuta")
        << QStringList{enLibexec} << QStringList{alLado} << ninguno << enLibexec;
    QTest::newRow("al lado, una carpeta")
        << QStringList{enLibexec} << ninguno << QStringList{alLado} << enLibexec;
    QTest::newRow("en ninguno") << ninguno << ninguno << ninguno << QString();
    QTest::newRow("en ninguno que se ejecute")
        << ninguno << QStringList{enLibexec} << QStringList{alLado} << QString();
}

void tst_companeros::programa_elMejorLugar()
{
    QFETCH(QStringList, programas);
    QFETCH(QStringList, sinPermiso);
    QFETCH(QStringList, carpetas);
    QFETCH(QString, hallado);
    const QTemporaryDir casa;
    for (const auto &carpeta : {u"/bin"_s, u"/libexec/parvanel"_s})
        QVERIFY(QDir().mkpath(casa.path() + carpeta));
    for (const QString &carpeta : carpetas)
        QVERIFY(QDir().mkpath(casa.path() + carpeta));
    for (const QString &programa : programas + sinPermiso) {
        QFile archivo(casa.path() + programa);
        QVERIFY(archivo.open(QIODevice::WriteOnly));
        const auto permisos = QFile::ReadOwner | QFile::WriteOwner;
        QVERIFY(archivo.setPermissions(programas.contains(programa) ? permisos | QFile::ExeOwner
                                                                    : permisos));
    }
    const auto donde = companeros::hallar(nombre, (casa.path() + u"/bin"_s).toStdString());
    QCOMPARE(donde.has_value(), !hallado.isEmpty());
    if (donde)
        QCOMPARE(enTexto(*donde), casa.path() + hallado);
}

void tst_companeros::sinCarpetaPropia_noEnLaDelMomento()
{
    const QTemporaryDir casa;
    QFile archivo(casa.filePath(u"parvanel-de-prueba"_s));
    QVERIFY(archivo.open(QIODevice::WriteOnly));
    QVERIFY(archivo.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    const QString antes = QDir::currentPath();
    QVERIFY(QDir::setCurrent(casa.path()));
    const auto hallado = companeros::hallar(nombre, {});
    QVERIFY(QDir::setCurrent(antes));
    QVERIFY(!hallado);
    QVERIFY(companeros::hallar(nombre, casa.path().toStdString()));
}

// Whoever starts it there learns that it is missing, or finds it once it has been installed.
void tst_companeros::ninguno_elUltimoEsElDeLaInstalacion()
{
    const std::filesystem::path ultimo = companeros::lugares(nombre, "/nada/bin").back();
    QVERIFY(ultimo.is_absolute());
    QVERIFY2(enTexto(ultimo).endsWith(u"/parvanel/parvanel-de-prueba"_s), ultimo.c_str());
    QVERIFY(!enTexto(ultimo).startsWith(u"/nada/"_s));
}

QTEST_APPLESS_MAIN(tst_companeros)
#include "tst_companeros.moc"
