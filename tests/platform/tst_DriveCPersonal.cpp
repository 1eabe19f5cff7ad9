// SPDX-License-Identifier: MIT
// Which folder C:\ stands for.
#include "CarpetaPersonal.h"
#include "escenario/VariablesIntactas.h"
#include "platform/DriveC.h"

#include <QProcess>
#include <QScopeGuard>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_DriveCPersonal : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void homeAbsoluta_vale_data();
    void homeAbsoluta_vale();
    void otraHome_laDeLaCuenta_data();
    void otraHome_laDeLaCuenta();
    void cuentaDesconocida_ninguna();
    void sinCarpetaPersonal_todoFalla_data();
    void sinCarpetaPersonal_todoFalla();
    void raizDelDisco_sirve();
};

void tst_DriveCPersonal::homeAbsoluta_vale_data()
{
    QTest::addColumn<QByteArray>("home");
    QTest::addColumn<QString>("carpeta");
    QTest::newRow("cualquiera") << QByteArray("/casas/ana") << u"/casas/ana"_s;
    QTest::newRow("con barra") << QByteArray("/casas/ana/") << u"/casas/ana"_s;
    QTest::newRow("acentos") << QByteArray("/casas/Mar\xC3\xAD"
                                           "a")
                             << u"/casas/María"_s;
}

void tst_DriveCPersonal::homeAbsoluta_vale()
{
    QFETCH(QByteArray, home);
    QFETCH(QString, carpeta);
    const VariablesIntactas intactas{"HOME"};
    qputenv("HOME", home);
    QCOMPARE(DriveC::carpetaPersonal(), carpeta);
}

void tst_DriveCPersonal::otraHome_laDeLaCuenta_data()
{
    QTest::addColumn<QByteArray>("home");
    QTest::newRow("vacia") << QByteArray("");
    QTest::newRow("relativa") << QByteArray("ana");
    QTest::newRow("relativa con punto") << QByteArray("./ana");
    QTest::newRow("ninguna") << QByteArray();
}

void tst_DriveCPersonal::otraHome_laDeLaCuenta()
{
    QFETCH(QByteArray, home);
    QProcess cuentas;
    cuentas.start(u"getent"_s, {u"passwd"_s, QString::number(::getuid())});
    QVERIFY(cuentas.waitForFinished(60000));
    const QString esperada = QString::fromUtf8(cuentas.readAllStandardOutput()).section(u':', 5, 5);
    const VariablesIntactas intactas{"HOME"};
    if (home.isNull())
        qunsetenv("HOME");
    else
        qputenv("HOME", home);
    QCOMPARE(DriveC::carpetaPersonal(), esperada);
}

// Somebody who is no account of this computer, as programs in a container may be.
void tst_DriveCPersonal::cuentaDesconocida_ninguna()
{
    if (::geteuid() != 0)
        QSKIP("becoming somebody else takes an administrator");
    const pid_t hijo = ::fork();
    if (hijo == 0) {
        qputenv("HOME", "");
        const bool otro = ::setuid(1'987'654'321) == 0;
        ::_exit(otro && DriveC::carpetaPersonal().isEmpty() ? 0 : 1);
    }
    int fin = -1;
    QCOMPARE(::waitpid(hijo, &fin, 0), hijo);
    QCOMPARE(fin, 0);
}

void tst_DriveCPersonal::sinCarpetaPersonal_todoFalla_data()
{
    QTest::addColumn<QString>("personal");
    for (const auto &personal : {u""_s, u"ana"_s, u"./ana"_s, u"."_s})
        QTest::newRow(personal.isEmpty() ? "vacia" : qPrintable(personal)) << personal;
}

// Neither the disk's top folder nor the process's current one is taken instead.
void tst_DriveCPersonal::sinCarpetaPersonal_todoFalla()
{
    QFETCH(QString, personal);
    const CarpetaPersonal actual;
    const QString nombre = u"Quorvela-%1"_s.arg(::getpid()); // none of the disk's top folder
    for (const QString &casa : {nombre, u"ana/"_s + nombre}) {
        QVERIFY(actual.hacerCarpeta(casa + u"/notas"_s));
        QVERIFY(actual.escribir(casa + u"/a.txt"_s, "ajeno"));
    }
    const QString antes = QDir::currentPath();
    QVERIFY(QDir::setCurrent(actual.ruta()));
    const auto volver = qScopeGuard([&] { QDir::setCurrent(antes); });

    DriveC disco(personal, nombre);
    const QString raiz = u"C:\\"_s + nombre;
    const QString archivo = raiz + u"\\a.txt"_s;
    QVERIFY(!disco.crearCarpeta(raiz));
    QVERIFY(!disco.crearCarpeta(raiz + u"\\nueva"_s));
    QVERIFY(!disco.agregar(archivo, "x"));
    QVERIFY(!disco.recibir(archivo));
    QVERIFY(!disco.borrar(archivo));
    QVERIFY(!disco.largo(archivo));
    QVERIFY(!disco.carpetas(raiz));
    QVERIFY(!disco.carpetas(u"C:\\"_s));
    QCOMPARE(disco.rutaNativa(archivo), archivo);
    QVERIFY(!QFileInfo::exists(u'/' + nombre));
    QCOMPARE(actual.entradas(), (QStringList{nombre, u"ana"_s}));
    for (const QString &casa : {nombre, u"ana/"_s + nombre})
        QCOMPARE(actual.entradas(casa), (QStringList{u"a.txt"_s, u"notas"_s}));
}

// An account may say so: then the paths have one separator all the same.
void tst_DriveCPersonal::raizDelDisco_sirve()
{
    const DriveC disco(u"/"_s);
    QCOMPARE(disco.rutaNativa(u"C:\\no existe\\a.txt"_s), u"/no existe/a.txt"_s);
    QCOMPARE(disco.rutaNativa(u"C:\\"_s), u"/"_s);
}

QTEST_GUILESS_MAIN(tst_DriveCPersonal)
#include "tst_DriveCPersonal.moc"
