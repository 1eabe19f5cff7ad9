// SPDX-License-Identifier: MIT
// What every download method asks for, rewrites, stores and shows.
#include "archive/casosDescarga.h"
#include "pages/guiones.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace casosDescarga;

namespace {

// A page with everything that any row of any table rewrites.
QByteArray paginaCompleta(const QByteArray &base)
{
    return "<a " + base.toUpper() + "/images/colegios/123/logo.png>" + "<b " + base
           + "/imgTXT.php?txt=NOTA:X><c " + base + "/IMGTXT.php?txt=Puesto><d " + base
           + "/images/promovido.png><d2 " + base + "/images/promovido.png><e " + base
           + "/images/reprobado.png><e2 " + base
           + "/images/reprobado.png><f Folio: \xAE"
             "FOLIO\xAE><g "
           + base + "/jup/images/123/14-alumno.jpg><h " + base
           + "/images/default-avatar.png>\xF1\x81";
}

} // namespace

class tst_descargas : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void metodo_pideGuardaYMuestraLoSuyo_data() { casosComoDatos(); }
    void metodo_pideGuardaYMuestraLoSuyo()
    {
        QFETCH(int, indice);
        const Caso &caso = casos[indice].second;
        Escenario e;
        prepararArchivo(e);
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        tcAlumnos alumnos(e.entorno);
        const QString matriz = u"13,6B®14,6A"_s;
        salones.Fcargar(matriz);
        alumnos.Fcargar(matriz);
        tcLista &lista = caso.deAlumnos ? static_cast<tcLista &>(alumnos) : salones;
        QSignalSpy avisos(&lista, &tcLista::nuevaDescarga);

        caso.metodo(salones, alumnos);

        const QString destino13 = QString(caso.destino).replace(u"14"_s, u"13"_s);
        QCOMPARE(e.destinos(), QStringList({destino13, caso.destino}));
        QCOMPARE(avisos.size(), 2);
        QCOMPARE(avisos[1][0].toString(), caso.texto);
        QCOMPARE(e.estadoTS.historia, QStringList({caso.titulo}));
        QCOMPARE(e.barra1.historia, QStringList({u"max 2"_s, u"0"_s, u"1"_s, u"2"_s}));
        QCOMPARE(e.barra2.historia, QStringList({u"1"_s}));
        QCOMPARE(e.listar(u"123-2010/archivos"_s), QStringList({caso.carpeta}));
        QCOMPARE(e.listar(u"123-2010/archivos/"_s + caso.carpeta),
                 QStringList({u"13.html"_s, u"14.html"_s}));
        const QByteArray guion = caso.conGuion ? guiones::documento.toLatin1() : QByteArray();
        QCOMPARE(e.leer(u"123-2010/archivos/%1/14.html"_s.arg(caso.carpeta)),
                 "una pagina cualquiera" + guion + "\r\n");
    }

    void pagina_seReescribeSegunSuTabla_data()
    {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QByteArray>("esperada"); // with @ for the service's address
        const QByteArray sellos = "<d @/images/promovido.png><d2 @/images/promovido.png>"
                                  "<e @/images/reprobado.png><e2 @/images/reprobado.png>";
        const QByteArray folio = "<f Folio: \xAE"
                                 "FOLIO\xAE>";
        const QByteArray fotos =
            "<g @/jup/images/123/14-alumno.jpg><h @/images/default-avatar.png>\xF1\x81";
        const QByteArray etiquetas = "<b @/imgTXT.php?txt=NOTA:X><c @/IMGTXT.php?txt=Puesto>";
        const QByteArray locales = "<b ../images/labels/NOTAX><c ../images/labels/Puesto>";
        const QByteArray logo = "<a ..\\images\\logo.png>";
        QTest::newRow("downSalones") << 0 << logo + locales + sellos + folio + fotos;
        QTest::newRow("downConsolidadoN") << 1 << logo + locales + sellos + folio + fotos;
        QTest::newRow("downConsolidadoF keeps the colon of NOTA:")
            << 2
            << logo + "<b ../images/labels/NOTA:X><c ../images/labels/Puesto>" + sellos + folio
                   + fotos;
        QTest::newRow("downInfoFinal, the first of each stamp")
            << 3
            << logo + etiquetas
                   + "<d ..\\images\\promovido.png><d2 @/images/promovido.png>"
                     "<e ..\\images\\reprobado.png><e2 @/images/reprobado.png>"
                   + folio + fotos;
        QTest::newRow("downCertificado")
            << 4 << logo + etiquetas + sellos + "<f Folio: _______>" + fotos;
        QTest::newRow("downHojaMat, the avatar among the photos")
            << 5
            << logo + etiquetas + sellos + folio
                   + "<g ..\\fotos\\14-alumno.jpg><h ..\\fotos\\default-avatar.png>\xF1\x81";
        QTest::newRow("downInfoAlumno, as it came")
            << 6 << "<a %/images/colegios/123/logo.png>" + etiquetas + sellos + folio + fotos;
    }
    void pagina_seReescribeSegunSuTabla()
    {
        QFETCH(int, indice);
        QFETCH(QByteArray, esperada);
        const Caso &caso = casos[indice].second;
        Escenario e;
        prepararArchivo(e);
        const QByteArray base = e.demo.base().toLatin1();
        e.responder("/", paginaCompleta(base));
        tcSalones salones(e.entorno);
        tcAlumnos alumnos(e.entorno);
        salones.Fcargar(u"14,6A"_s);
        alumnos.Fcargar(u"14,6A"_s);
        caso.metodo(salones, alumnos);
        const QByteArray guion = caso.conGuion ? guiones::documento.toLatin1() : QByteArray();
        QCOMPARE(e.leer(u"123-2010/archivos/%1/14.html"_s.arg(caso.carpeta)),
                 esperada.replace('%', base.toUpper()).replace('@', base) + guion + "\r\n");
    }

    void paginaDeTodosLosBytes_quedaIntacta()
    {
        QByteArray todos;
        for (int i = 0; i < 256; ++i)
            todos.append(static_cast<char>(i));
        Escenario e;
        prepararArchivo(e);
        e.responder("/", todos);
        tcSalones salones(e.entorno);
        tcAlumnos alumnos(e.entorno);
        salones.Fcargar(u"14,6A"_s);
        alumnos.Fcargar(u"14,6A"_s);
        salones.downSalones();
        alumnos.downInfoAlumno();
        QCOMPARE(e.leer(u"123-2010/archivos/salones/14.html"_s), todos + "\r\n");
        QCOMPARE(e.leer(u"123-2010/archivos/infoAlumnos/14.html"_s), todos + "\r\n");
    }

    void listaVacia_haceSusCarpetasYAvanzaUnPaso_data() { casosComoDatos(); }
    void listaVacia_haceSusCarpetasYAvanzaUnPaso()
    {
        QFETCH(int, indice);
        const Caso &caso = casos[indice].second;
        Escenario e;
        prepararArchivo(e);
        tcSalones salones(e.entorno);
        tcAlumnos alumnos(e.entorno);
        QSignalSpy avisos(&salones, &tcLista::nuevaDescarga);
        QSignalSpy otrosAvisos(&alumnos, &tcLista::nuevaDescarga);
        caso.metodo(salones, alumnos);
        QCOMPARE(e.listar(u"123-2010/archivos"_s), QStringList({caso.carpeta}));
        QCOMPARE(e.listar(u"123-2010/archivos/"_s + caso.carpeta), QStringList());
        QCOMPARE(e.barra1.historia, QStringList({u"max 0"_s, u"0"_s}));
        QCOMPARE(e.barra2.historia, QStringList({u"1"_s}));
        QCOMPARE(e.estadoTS.historia, QStringList({caso.titulo}));
        QCOMPARE(avisos.size() + otrosAvisos.size(), 0);
        QCOMPARE(e.destinos(), QStringList());
    }

    void sinCarpetaDelArchivo_losConsolidadosNoGuardanNada_data() { casosComoDatos(); }
    void sinCarpetaDelArchivo_losConsolidadosNoGuardanNada()
    {
        QFETCH(int, indice);
        const Caso &caso = casos[indice].second;
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        tcAlumnos alumnos(e.entorno);
        salones.Fcargar(u"14,6A"_s);
        alumnos.Fcargar(u"14,6A"_s);
        caso.metodo(salones, alumnos);
        QCOMPARE(e.listar(QString()), caso.sinCarpetaDelArchivo);
        QCOMPARE(e.destinos().size(), 1);
        QCOMPARE(e.barra1.valor(), 1);
    }
};

QTEST_MAIN(tst_descargas)
#include "tst_descargas.moc"
