// SPDX-License-Identifier: MIT
// The archive is changed by others while the program is at work.
#include "UnidadDePrueba.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

class tst_DriveCAjena : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void otroProcesoCrea_seVe();
    void otroProcesoCrea_seVeTrasUnCambioPropio();
    void otroProcesoBorra_seVe();
    void otroProcesoRenombra_seVe();

private:
    // File times move in steps; returns when a change made now gets another time than one made
    // before the call.
    void esperarOtroMomento();
    // A change of the archive by a program that is not this one: this one, started once more.
    bool otroProceso(const QStringList &cambio) const;
    QString archivo(const QString &nombre) const { return m_casa->ruta(u"Quorvela/"_s + nombre); }
};

void tst_DriveCAjena::esperarOtroMomento()
{
    const auto momento = [this] {
        m_casa->escribir(u".momento"_s, {});
        QDateTime escrito = QFileInfo(m_casa->ruta(u".momento"_s)).lastModified();
        QFile::remove(m_casa->ruta(u".momento"_s));
        return escrito;
    };
    const auto antes = momento();
    QTRY_VERIFY(momento() != antes);
}

bool tst_DriveCAjena::otroProceso(const QStringList &cambio) const
{
    return QProcess::execute(QCoreApplication::applicationFilePath(), cambio) == 0;
}

void tst_DriveCAjena::otroProcesoCrea_seVe()
{
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\propio.txt"_s, "p"));
    esperarOtroMomento();
    QVERIFY(otroProceso({u"--crear"_s, archivo(u"Foto.JPG"_s)}));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s), 4);
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\FOTO.jpg"_s, "!"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"Foto.JPG"_s, u"propio.txt"_s}));
}

// A change of the program's own, made without looking any name up, must not hide the other's.
void tst_DriveCAjena::otroProcesoCrea_seVeTrasUnCambioPropio()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\propio.txt"_s, "p"));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s));
    esperarOtroMomento();
    QVERIFY(otroProceso({u"--crear"_s, archivo(u"Foto.JPG"_s)}));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\propio.txt"_s));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s), 4);
}

void tst_DriveCAjena::otroProcesoBorra_seVe()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\Foto.jpg"_s, "1"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\FOTO.jpg"_s), 1);
    esperarOtroMomento();
    QVERIFY(otroProceso({u"--borrar"_s, archivo(u"Foto.jpg"_s)}));
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\FOTO.jpg"_s));
    // The spelling that is gone no longer counts.
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\FOTO.jpg"_s, "2"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"FOTO.jpg"_s});
}

void tst_DriveCAjena::otroProcesoRenombra_seVe()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\NOTAS\\a.txt"_s, "1"));
    esperarOtroMomento();
    QVERIFY(otroProceso({u"--renombrar"_s, archivo(u"notas"_s), archivo(u"Notas"_s)}));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\NOTAS\\a.txt"_s, "2"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"Notas"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/Notas/a.txt"_s), QByteArray("12"));
}

// The other program: whether it could do what its arguments say.
static bool cambiar(const QStringList &cambio)
{
    if (cambio[0] == u"--crear") {
        QFile archivo(cambio[1]);
        return archivo.open(QIODevice::WriteOnly) && archivo.write("hola") == 4;
    }
    if (cambio[0] == u"--borrar")
        return QFile::remove(cambio[1]);
    // By way of a third name: not every disk changes the letter case of one alone.
    const std::filesystem::path paso = (cambio[1] + u".paso"_s).toStdU16String();
    std::error_code error;
    std::filesystem::rename(cambio[1].toStdU16String(), paso, error);
    if (!error)
        std::filesystem::rename(paso, cambio[2].toStdU16String(), error);
    return !error;
}

int main(int argc, char **argv)
{
    const QCoreApplication aplicacion(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments().mid(1);
    for (const auto &cambio : {u"--crear"_s, u"--borrar"_s, u"--renombrar"_s}) {
        if (argumentos.value(0) == cambio)
            return cambiar(argumentos) ? 0 : 1;
    }
    tst_DriveCAjena pruebas;
    return QTest::qExec(&pruebas, argc, argv);
}

#include "tst_DriveCAjena.moc"
