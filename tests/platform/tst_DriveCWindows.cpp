// SPDX-License-Identifier: MIT
// Drive C on Windows: the drive itself, long paths, marks, and names that need the long form.
#include "EntradasDeWindows.h"
#include "UnidadDePrueba.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;
using namespace entradasDeWindows;

class tst_DriveCWindows : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void carpetaPersonal_esLaUnidadC();
    void unidadC_seLee();
    void sinCarpetaPersonal_todoFalla_data();
    void sinCarpetaPersonal_todoFalla();
    void rutaLarga_sirve();
    void rutaNativa_paraElSistema();
    void soloLectura_seBorra();
    void soloLectura_seReemplaza_data();
    void soloLectura_seReemplaza();
    void soloLectura_noSeAgrega();
    void soloLecturaConOtroNombreFuera_laMarcaQueda();
    void carpetaOculta_seLista();
    void nombreQueWindowsNoLee_esaMismaCarpeta_data();
    void nombreQueWindowsNoLee_esaMismaCarpeta();
    void nombreCorto_elMismoArchivo();
    void archivoConOtroNombreFuera_noCambia();
    void carpetaConDescarga_noSeMueve();
    void descargaEnMarcha_otrosPuedenLeerla();

private:
    bool ponerSoloLectura(const QString &dentro) const
    {
        return m_casa->escribir(dentro, "anterior")
               && marcar(m_casa->ruta(dentro), FILE_ATTRIBUTE_READONLY)
               && soloLectura(m_casa->ruta(dentro));
    }
    bool recibir(const QString &ruta, const QByteArray &bytes) const
    {
        const auto entrante = m_disco->recibir(ruta);
        return entrante && entrante->dispositivo().write(bytes) == bytes.size()
               && entrante->publicar();
    }
};

void tst_DriveCWindows::carpetaPersonal_esLaUnidadC()
{
    QCOMPARE(DriveC::carpetaPersonal(), u"C:/"_s);
}

void tst_DriveCWindows::unidadC_seLee()
{
    const DriveC disco(DriveC::carpetaPersonal());
    const auto carpetas = disco.carpetas(u"C:\\"_s);
    QVERIFY(carpetas && carpetas->contains(u"C:\\windows"_s, Qt::CaseInsensitive));
    QCOMPARE(disco.rutaNativa(u"c:/Nada de Esto/x.html"_s), u"C:\\Nada de Esto\\x.html"_s);
    QCOMPARE(disco.rutaNativa(u"C:\\"_s), u"C:\\"_s);
}

void tst_DriveCWindows::sinCarpetaPersonal_todoFalla_data()
{
    QTest::addColumn<QString>("personal");
    QTest::newRow("ninguna") << QString();
    QTest::newRow("relativa") << u"ana"_s;
    QTest::newRow("relativa a la unidad") << u"C:ana"_s;
    QTest::newRow("sin unidad") << u"/"_s;
    QTest::newRow("que no existe") << u"C:/no existe"_s;
}

void tst_DriveCWindows::sinCarpetaPersonal_todoFalla()
{
    QFETCH(QString, personal);
    DriveC disco(personal);
    QVERIFY(!disco.crearCarpeta(u"C:\\Quorvela"_s));
    QVERIFY(!disco.crearCarpeta(u"C:\\Quorvela\\a"_s));
    QVERIFY(!disco.agregar(u"C:\\Quorvela\\a.txt"_s, "a"));
    QVERIFY(!disco.escribir(u"C:\\Quorvela\\a.txt"_s, "a"));
    QVERIFY(!disco.recibir(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(!disco.borrar(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(!disco.largo(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(!disco.carpetas(u"C:\\Quorvela"_s));
}

void tst_DriveCWindows::rutaLarga_sirve()
{
    QString ruta = u"C:\\Quorvela"_s;
    QString dentro = u"Quorvela"_s;
    for (int nivel = 0; nivel < 4; ++nivel) {
        const QString nombre = QString(90, u'ñ') + QString::number(nivel);
        ruta += u'\\' + nombre;
        dentro += u'/' + nombre;
        QVERIFY(m_disco->crearCarpeta(ruta));
    }
    QVERIFY(ruta.size() > 260);
    QVERIFY(m_disco->agregar(ruta + u"\\a.txt"_s, "a"));
    QVERIFY(m_disco->escribir(ruta + u"\\a.txt"_s, "bb"));
    QCOMPARE(m_disco->largo(ruta + u"\\A.TXT"_s), 2);
    QVERIFY(recibir(ruta + u"\\b.jpg"_s, "foto"));
    QVERIFY(recibir(ruta + u"\\b.jpg"_s, "otra"));
    QCOMPARE(m_casa->entradas(dentro), (QStringList{u"a.txt"_s, u"b.jpg"_s}));
    QCOMPARE(m_casa->leer(dentro + u"/b.jpg"_s), QByteArray("otra"));
    QVERIFY(m_disco->crearCarpeta(ruta + u"\\fin"_s));
    QCOMPARE(m_disco->carpetas(ruta), QStringList{ruta + u"\\fin"_s});
    QCOMPARE(m_disco->rutaNativa(ruta + u"\\b.jpg"_s),
             u"\\\\?\\"_s + m_casa->nativa(dentro + u"/b.jpg"_s));
    QVERIFY(m_disco->borrar(ruta + u"\\a.txt"_s));
    QVERIFY(m_disco->borrar(ruta + u"\\b.jpg"_s));
    QCOMPARE(m_casa->entradas(dentro), QStringList{u"fin"_s});
}

void tst_DriveCWindows::rutaNativa_paraElSistema()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/123-2010"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/123-2010/Index.html"_s, "x"));
    const QString nativa = m_disco->rutaNativa(u"c:/quorvela/123-2010/index.html"_s);
    QCOMPARE(nativa, m_casa->nativa(u"Quorvela/123-2010/Index.html"_s));
    QVERIFY2(!nativa.contains(u'/') && !nativa.contains(u'?'), qPrintable(nativa));
}

// Whether a file goes is decided by its folder on the other systems, and so it is here.
void tst_DriveCWindows::soloLectura_seBorra()
{
    QVERIFY(ponerSoloLectura(u"Quorvela/a.txt"_s));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(m_casa->entradas(u"Quorvela"_s).isEmpty());
}

void tst_DriveCWindows::soloLectura_seReemplaza_data()
{
    QTest::addColumn<bool>("recibido");
    QTest::newRow("escrito") << false;
    QTest::newRow("recibido") << true;
}

void tst_DriveCWindows::soloLectura_seReemplaza()
{
    QFETCH(bool, recibido);
    QVERIFY(ponerSoloLectura(u"Quorvela/a.txt"_s));
    const QString ruta = u"C:\\Quorvela\\a.txt"_s;
    QVERIFY(recibido ? recibir(ruta, "nuevo") : m_disco->escribir(ruta, "nuevo"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("nuevo"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.txt"_s});
    QVERIFY(!soloLectura(m_casa->ruta(u"Quorvela/a.txt"_s)));
}

void tst_DriveCWindows::soloLectura_noSeAgrega()
{
    QVERIFY(ponerSoloLectura(u"Quorvela/a.txt"_s));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "b"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("anterior"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\a.txt"_s), 8);
    QVERIFY(soloLectura(m_casa->ruta(u"Quorvela/a.txt"_s)));
    QVERIFY(marcar(m_casa->ruta(u"Quorvela/a.txt"_s), FILE_ATTRIBUTE_NORMAL));
}

// The mark belongs to the file and not to its name: taken off, it would be gone outside as well.
void tst_DriveCWindows::soloLecturaConOtroNombreFuera_laMarcaQueda()
{
    QVERIFY(m_casa->escribir(u"ajeno.txt"_s, "ajeno"));
    QVERIFY(otroNombre(m_casa->ruta(u"ajeno.txt"_s), m_casa->ruta(u"Quorvela/a.txt"_s)));
    QVERIFY(marcar(m_casa->ruta(u"ajeno.txt"_s), FILE_ATTRIBUTE_READONLY));
    QVERIFY(soloLectura(m_casa->ruta(u"Quorvela/a.txt"_s)));
    // Whether it can go all the same is the disk's to say.
    [[maybe_unused]] const bool borrado = m_disco->borrar(u"C:\\Quorvela\\a.txt"_s);
    [[maybe_unused]] const bool recibido = recibir(u"C:\\Quorvela\\a.txt"_s, "nuevo");
    QVERIFY(soloLectura(m_casa->ruta(u"ajeno.txt"_s)));
    QCOMPARE(m_casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 1);
    QVERIFY(marcar(m_casa->ruta(u"ajeno.txt"_s), FILE_ATTRIBUTE_NORMAL));
}

void tst_DriveCWindows::carpetaOculta_seLista()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/.1-2010"_s));
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/oculta"_s));
    QVERIFY(marcar(m_casa->ruta(u"Quorvela/oculta"_s), FILE_ATTRIBUTE_HIDDEN));
    QCOMPARE(m_disco->carpetas(u"C:\\Quorvela"_s),
             (QStringList{u"C:\\Quorvela\\.1-2010"_s, u"C:\\Quorvela\\oculta"_s}));
}

void tst_DriveCWindows::nombreQueWindowsNoLee_esaMismaCarpeta_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<QString>("vecina"); // what the name would be read as
    QTest::newRow("punto al final") << u"punto."_s << u"punto"_s;
    QTest::newRow("blanco al final") << u"blanco "_s << u"blanco"_s;
    QTest::newRow("dispositivo") << u"con"_s << u"otra"_s;
}

// Programs that ask the system for a name letter by letter can make such a folder.
void tst_DriveCWindows::nombreQueWindowsNoLee_esaMismaCarpeta()
{
    QFETCH(QString, nombre);
    QFETCH(QString, vecina);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/"_s + vecina));
    const QString dentro = u"Quorvela/"_s + nombre;
    QVERIFY(::CreateDirectoryW(ancha(m_casa->ruta(dentro)).c_str(), nullptr) != FALSE);
    const auto lista = m_disco->carpetas(u"C:\\Quorvela"_s);
    QVERIFY(lista && lista->contains(u"C:\\Quorvela\\"_s + nombre));
    QCOMPARE(m_disco->rutaNativa(u"C:\\Quorvela\\"_s + nombre + u"/index.html"_s),
             u"\\\\?\\"_s + m_casa->nativa(dentro + u"/index.html"_s));
    QVERIFY(::RemoveDirectoryW(ancha(m_casa->ruta(dentro)).c_str()) != FALSE);
}

void tst_DriveCWindows::nombreCorto_elMismoArchivo()
{
    QVERIFY(m_casa->escribir(u"Quorvela/Nombre bastante largo.html"_s, "uno"));
    std::array<wchar_t, 1024> lugar{};
    const DWORD largo =
        ::GetShortPathNameW(ancha(m_casa->ruta(u"Quorvela/Nombre bastante largo.html"_s)).c_str(),
                            lugar.data(), static_cast<DWORD>(lugar.size()));
    const QString corto =
        QString::fromWCharArray(lugar.data(), static_cast<int>(largo)).section(u'\\', -1);
    if (!corto.contains(u'~'))
        QSKIP("this disk gives no short names");
    const QString ruta = u"C:\\Quorvela\\"_s + corto;
    QCOMPARE(m_disco->largo(ruta), 3);
    QVERIFY(recibir(ruta, "dos"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"Nombre bastante largo.html"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/Nombre bastante largo.html"_s), QByteArray("dos"));
}

// Nothing tells where a file's other names stand.
void tst_DriveCWindows::archivoConOtroNombreFuera_noCambia()
{
    const auto juntar = [this] {
        return otroNombre(m_casa->ruta(u"ajeno.txt"_s), m_casa->ruta(u"Quorvela/a.txt"_s));
    };
    QVERIFY(m_casa->escribir(u"ajeno.txt"_s, "ajeno"));
    QVERIFY(juntar());
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "x"));
    QCOMPARE(m_casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\a.txt"_s), 5);
    QVERIFY(m_disco->escribir(u"C:\\Quorvela\\a.txt"_s, "x"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("x"));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
    QVERIFY(juntar());
    QVERIFY(recibir(u"C:\\Quorvela\\a.txt"_s, "y"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("y"));
    QCOMPARE(m_casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
}

// A download takes its time; what it is written into stays where it is meanwhile.
void tst_DriveCWindows::carpetaConDescarga_noSeMueve()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/fotos/de 1A"_s));
    QVERIFY(m_casa->hacerCarpeta(u"escritorio"_s));
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\fotos\\de 1A\\a.jpg"_s);
    QVERIFY(entrante);
    QCOMPARE(entrante->dispositivo().write("foto"), 4);
    QVERIFY(::MoveFileW(ancha(m_casa->ruta(u"Quorvela/fotos/de 1A"_s)).c_str(),
                        ancha(m_casa->ruta(u"escritorio/fotos"_s)).c_str())
            == FALSE);
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->leer(u"Quorvela/fotos/de 1A/a.jpg"_s), QByteArray("foto"));
    QVERIFY(m_casa->entradas(u"escritorio"_s).isEmpty());
}

void tst_DriveCWindows::descargaEnMarcha_otrosPuedenLeerla()
{
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(entrante);
    QCOMPARE(entrante->dispositivo().write("foto"), 4);
    const QString temporal =
        m_casa->ruta(u"Quorvela/"_s + m_casa->entradas(u"Quorvela"_s).value(0));
    constexpr DWORD todos = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    QVERIFY(Abierto(temporal, GENERIC_READ, todos));
    QVERIFY(!Abierto(temporal, GENERIC_WRITE, todos));
    QVERIFY(!Abierto(temporal, DELETE, todos));
}

QTEST_GUILESS_MAIN(tst_DriveCWindows)
#include "tst_DriveCWindows.moc"
