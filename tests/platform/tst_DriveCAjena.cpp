// SPDX-License-Identifier: MIT
// What becomes of the archive while the program is at work: others change it, its root leads away.
#include "UnidadDePrueba.h"

#include <QProcess>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_DriveCAjena : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void raizQueEsEnlace_sirve();
    void otroProcesoCrea_seVe();
    void otroProcesoCrea_seVeTrasUnCambioPropio();
    void otroProcesoBorra_seVe();
    void otroProcesoRenombra_seVe();

private:
    // File times move in steps; returns when a change made now gets another time than one made
    // before the call.
    void esperarOtroMomento();
    // A change of the archive by a program that is not this one.
    bool otroProceso(const QString &orden, const QStringList &argumentos) const;
};

void tst_DriveCAjena::esperarOtroMomento()
{
    const auto momento = [this] {
        m_casa->escribir(u".momento"_s, {});
        struct stat datos = {};
        ::stat(QFile::encodeName(m_casa->ruta(u".momento"_s)).constData(), &datos);
        QFile::remove(m_casa->ruta(u".momento"_s));
        return std::pair(datos.st_mtim.tv_sec, datos.st_mtim.tv_nsec);
    };
    const auto antes = momento();
    QTRY_VERIFY(momento() != antes);
}

bool tst_DriveCAjena::otroProceso(const QString &orden, const QStringList &argumentos) const
{
    return QProcess::execute(orden, argumentos) == 0;
}

// A user may keep the archive on another disk; the link's folder then is the archive root.
void tst_DriveCAjena::raizQueEsEnlace_sirve()
{
    const CarpetaPersonal disquera;
    QVERIFY(QDir().rmdir(m_casa->ruta(u"Quorvela"_s)));
    QVERIFY(m_casa->enlazar(disquera.ruta(), u"Quorvela"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\123-2010"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\123-2010\\a.txt"_s, "a"));
    QCOMPARE(disquera.leer(u"123-2010/a.txt"_s), QByteArray("a"));
}

void tst_DriveCAjena::otroProcesoCrea_seVe()
{
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\propio.txt"_s, "p"));
    esperarOtroMomento();
    QVERIFY(otroProceso(
        u"/bin/sh"_s, {u"-c"_s, u"printf hola > \"$0/Foto.JPG\""_s, m_casa->ruta(u"Quorvela"_s)}));
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
    QVERIFY(otroProceso(
        u"/bin/sh"_s, {u"-c"_s, u"printf hola > \"$0/Foto.JPG\""_s, m_casa->ruta(u"Quorvela"_s)}));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\propio.txt"_s));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\foto.jpg"_s), 4);
}

void tst_DriveCAjena::otroProcesoBorra_seVe()
{
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\Foto.jpg"_s, "1"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\FOTO.jpg"_s), 1);
    esperarOtroMomento();
    QVERIFY(otroProceso(u"/bin/rm"_s, {m_casa->ruta(u"Quorvela/Foto.jpg"_s)}));
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
    QVERIFY(otroProceso(u"/bin/mv"_s,
                        {m_casa->ruta(u"Quorvela/notas"_s), m_casa->ruta(u"Quorvela/Notas"_s)}));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\NOTAS\\a.txt"_s, "2"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"Notas"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/Notas/a.txt"_s), QByteArray("12"));
}

QTEST_GUILESS_MAIN(tst_DriveCAjena)
#include "tst_DriveCAjena.moc"
