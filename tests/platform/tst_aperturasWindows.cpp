// SPDX-License-Identifier: MIT
// What is told of an open entry, and that one is named from its folder.
#include "EntradasDeWindows.h"
#include "UnidadDePrueba.h"
#include "aperturas_windows.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_aperturasWindows : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void rutaDeUnidad_sinBarraAlFinal();
    void ruta_comoEstaEnElDisco();
    void rutaMuyLarga_seSabe();
    void carpetaAbierta_noSeMueve();
    void manijas_noSeHeredan();

private:
    aperturas::Apertura abrir(const QString &dentro) const
    {
        return aperturas::abrirCarpeta(u"\\\\?\\"_s + m_casa->nativa(dentro));
    }
};

// A junction to the top folder of a bigger disk is an archive root as good as any.
void tst_aperturasWindows::rutaDeUnidad_sinBarraAlFinal()
{
    const auto unidad = aperturas::abrirCarpeta(u"\\\\?\\C:\\"_s);
    QVERIFY(unidad);
    const auto datos = aperturas::datosDe(unidad.manija);
    QVERIFY(datos && datos->esCarpeta);
    QCOMPARE(datos->ruta, u"\\\\?\\C:"_s);
    const auto dentro = aperturas::abrirCarpeta(unidad.manija, u"WINDOWS"_s);
    QVERIFY(dentro);
    QCOMPARE(aperturas::datosDe(dentro.manija)->carpeta(), datos->ruta);
}

void tst_aperturasWindows::ruta_comoEstaEnElDisco()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/Notas"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/Notas/Ñandú.txt"_s, "abc"));
    const auto carpeta = abrir(u"QUORVELA"_s);
    QVERIFY(carpeta);
    const auto archivo =
        aperturas::mirar(carpeta.manija, u"notas\\ñANDÚ.TXT"_s, aperturas::Enlace::ElMismo);
    QVERIFY(archivo);
    const auto datos = aperturas::datosDe(archivo.manija);
    QVERIFY(datos && datos->esArchivo() && !datos->soloLectura);
    QCOMPARE(datos->ruta, u"\\\\?\\"_s + m_casa->nativa(u"Quorvela/Notas/Ñandú.txt"_s));
    QCOMPARE(datos->nombre(), u"Ñandú.txt"_s);
    QCOMPARE(datos->largo, 3);
    QCOMPARE(datos->nombres, 1UL);
}

void tst_aperturasWindows::rutaMuyLarga_seSabe()
{
    auto carpeta = abrir(u"Quorvela"_s);
    QString ruta = u"\\\\?\\"_s + m_casa->nativa(u"Quorvela"_s);
    for (int nivel = 0; nivel < 12; ++nivel) {
        const QString nombre = QString(100, u'x');
        QCOMPARE(aperturas::crearCarpeta(carpeta.manija, nombre), aperturas::Fin::Hecho);
        carpeta = aperturas::abrirCarpeta(carpeta.manija, nombre);
        ruta += u'\\' + nombre;
        QCOMPARE(aperturas::datosDe(carpeta.manija)->ruta, ruta);
    }
}

void tst_aperturasWindows::carpetaAbierta_noSeMueve()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/notas/sub"_s));
    const auto carpeta = abrir(u"Quorvela/notas/sub"_s);
    QVERIFY(carpeta);
    QVERIFY(!QDir().rename(m_casa->ruta(u"Quorvela/notas/sub"_s), m_casa->ruta(u"fuera"_s)));
    QVERIFY(!QDir().rmdir(m_casa->ruta(u"Quorvela/notas/sub"_s)));
    QVERIFY(m_casa->escribir(u"Quorvela/notas/sub/a.txt"_s, "a")); // others go on in it
}

void tst_aperturasWindows::manijas_noSeHeredan()
{
    const auto carpeta = abrir(u"Quorvela"_s);
    const auto archivo = aperturas::crearParaAgregar(carpeta.manija, u"a.txt"_s);
    const auto recibido = aperturas::crearParaRecibir(carpeta.manija, u"b.txt"_s);
    for (const auto *apertura : {&carpeta, &archivo, &recibido}) {
        DWORD marcas = HANDLE_FLAG_INHERIT;
        QVERIFY(::GetHandleInformation(apertura->manija.valor(), &marcas) != FALSE);
        QCOMPARE(marcas & HANDLE_FLAG_INHERIT, DWORD(0));
    }
}

QTEST_GUILESS_MAIN(tst_aperturasWindows)
#include "tst_aperturasWindows.moc"
