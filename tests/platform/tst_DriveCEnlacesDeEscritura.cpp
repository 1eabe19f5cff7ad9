// SPDX-License-Identifier: MIT
// The links of other spellings that stand beside folders, for browsers that regard letter case.
#include "UnidadDePrueba.h"

#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_DriveCEnlacesDeEscritura : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void nombreAcentuado_guardadoEnUtf8();
    void carpetaEnOtraEscritura_dejaEnlace();
    void enlaceDeEscritura_noSeRepite();
    void enlaceDeEscritura_sirveDeCarpeta();
    void borrar_carpetaOEnlaceDeEscritura_falla();
};

void tst_DriveCEnlacesDeEscritura::nombreAcentuado_guardadoEnUtf8()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\Español"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\Español\\Física.png"_s, "x"));
    const QByteArray nativa =
        m_casa->ruta().toUtf8() + "/Quorvela/Espa\xC3\xB1ol/F\xC3\xADsica.png";
    struct stat datos = {};
    QCOMPARE(::stat(nativa.constData(), &datos), 0);
}

void tst_DriveCEnlacesDeEscritura::carpetaEnOtraEscritura_dejaEnlace()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\infoAlumno"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\InfoAlumno\\"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"InfoAlumno"_s, u"infoAlumno"_s}));
    QCOMPARE(m_casa->enlace(u"Quorvela/InfoAlumno"_s), QByteArray("infoAlumno"));
    QCOMPARE(m_casa->enlace(u"Quorvela/infoAlumno"_s), QByteArray());
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\INFOALUMNO\\1.html"_s, "x"));
    QCOMPARE(m_casa->leer(u"Quorvela/InfoAlumno/1.html"_s), QByteArray("x"));
    QCOMPARE(m_casa->leer(u"Quorvela/infoAlumno/1.html"_s), QByteArray("x"));
}

void tst_DriveCEnlacesDeEscritura::enlaceDeEscritura_noSeRepite()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    for (int vez = 0; vez < 2; ++vez) {
        QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\Notas"_s));
        QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
        QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    }
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"NOTAS"_s, u"Notas"_s, u"notas"_s}));
    QCOMPARE(m_casa->enlace(u"Quorvela/NOTAS"_s), QByteArray("notas"));
    QCOMPARE(m_casa->enlace(u"Quorvela/Notas"_s), QByteArray("notas"));
}

void tst_DriveCEnlacesDeEscritura::enlaceDeEscritura_sirveDeCarpeta()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS\\p1"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\NOTAS\\p1\\a.txt"_s, "a"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\notas\\P1\\A.TXT"_s), 1);
    QCOMPARE(m_casa->leer(u"Quorvela/notas/p1/a.txt"_s), QByteArray("a"));
}

void tst_DriveCEnlacesDeEscritura::borrar_carpetaOEnlaceDeEscritura_falla()
{
    QVERIFY(m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\NOTAS"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\notas"_s));
    QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\NOTAS"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"NOTAS"_s, u"notas"_s}));
}

QTEST_GUILESS_MAIN(tst_DriveCEnlacesDeEscritura)
#include "tst_DriveCEnlacesDeEscritura.moc"
