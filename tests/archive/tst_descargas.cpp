#include "archive/descargas.h"
#include "escenario/Escenario.h"
#include "pages/guiones.h"
#include "records/tcAlumnos.h"
#include "records/tcSalones.h"
#include "service/archivos.h"

#include <QSignalSpy>
#include <QTest>

namespace {

using Metodo = std::function<void(tcSalones &, tcAlumnos &)>;

struct Caso {
    Metodo metodo;
    bool deAlumnos;
    QString titulo;
    QString texto; // for the record 14 named "6A", 2 of 2
    QString carpeta;
    QString destino; // for the record 14
    bool conGuion;
    QStringList sinCarpetaDelArchivo; // what stands below the root afterwards, nothing before
};

const QString otras = QStringLiteral("123-2010");

const QList<QPair<QByteArray, Caso>> casos = {
    {"downSalones",
     {[](tcSalones &s, tcAlumnos &) { s.downSalones(); },
      false,
      QStringLiteral("Descargando Salones"),
      QStringLiteral("Descargando Salon (14): 6A - 2 de 2"),
      QStringLiteral("salones"),
      QStringLiteral("/querys/tessarin/alumnos.php?azar=#&idcolegio=123&tipo=html&salon=14"),
      false,
      {otras}}},
    {"downConsolidadoN",
     {[](tcSalones &s, tcAlumnos &) { s.downConsolidadoN(); },
      false,
      QStringLiteral("Descargando Consolidado Notas"),
      QStringLiteral("Descargando Consolidado Notas (14): 6A - 2 de 2"),
      QStringLiteral("consolidadoN"),
      QStringLiteral("/notas/123/2010/consolidado/14/4/tessarin/?azar=#&"),
      false,
      {}}},
    {"downConsolidadoF",
     {[](tcSalones &s, tcAlumnos &) { s.downConsolidadoF(); },
      false,
      QStringLiteral("Descargando Consolidado Fallas"),
      QStringLiteral("Descargando Consolidado Fallas (14): 6A - 2 de 2"),
      QStringLiteral("consolidadoF"),
      QStringLiteral("/notas/123/2010/consolidadof/14/4/tessarin/?azar=#&"),
      false,
      {}}},
    {"downInfoFinal",
     {[](tcSalones &, tcAlumnos &a) { a.downInfoFinal(); },
      true,
      QStringLiteral("Descargando Informes Finales"),
      QStringLiteral("Informe Final (14): 6A - 2 de 2"),
      QStringLiteral("infoFinal"),
      QStringLiteral("/salones/123/2010/infoFinal/14/tessarin/?azar=#&"),
      true,
      {otras}}},
    {"downCertificado",
     {[](tcSalones &, tcAlumnos &a) { a.downCertificado(); },
      true,
      QStringLiteral("Descargando Certificados Finales"),
      QStringLiteral("Certificado (14): 6A - 2 de 2"),
      QStringLiteral("certificados"),
      QStringLiteral("/salones/123/2010/certificado/14/tessarin/?azar=#&"),
      true,
      {otras}}},
    {"downHojaMat",
     {[](tcSalones &, tcAlumnos &a) { a.downHojaMat(); },
      true,
      QStringLiteral("Descargando Hojas de Matricula"),
      QStringLiteral("Hoja Matricula (14): 6A - 2 de 2"),
      QStringLiteral("matriculas"),
      QStringLiteral("/alumnos/123/2010/hojaMatricula/14/tessarin/?azar=#&"),
      true,
      {otras}}},
    {"downInfoAlumno",
     {[](tcSalones &, tcAlumnos &a) { a.downInfoAlumno(); },
      true,
      QStringLiteral("Descargando Informacion de Alumnos"),
      QStringLiteral("InfoAlumno (14): 6A - 2 de 2"),
      QStringLiteral("infoAlumnos"),
      QStringLiteral("/querys/tessarin/infoAlumno.php?azar=#&idcolegio=123&idalumno=14"),
      false,
      {otras}}},
};

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
private:
    void prepararArchivo(Escenario &e)
    {
        crearCarpeta(e.entorno, QStringLiteral("C:\\Quorvela"));
        crearCarpeta(e.entorno, QStringLiteral("c:\\Quorvela\\123-2010\\"));
    }

    static void casosComoDatos()
    {
        QTest::addColumn<int>("indice");
        for (int indice = 0; indice < casos.size(); ++indice)
            QTest::newRow(casos[indice].first.constData()) << indice;
    }

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
        const QString matriz = QStringLiteral("13,6B®14,6A");
        salones.Fcargar(matriz);
        alumnos.Fcargar(matriz);
        tcLista &lista = caso.deAlumnos ? static_cast<tcLista &>(alumnos) : salones;
        QSignalSpy avisos(&lista, &tcLista::nuevaDescarga);

        caso.metodo(salones, alumnos);

        const QString destino13 =
            QString(caso.destino).replace(QStringLiteral("14"), QStringLiteral("13"));
        QCOMPARE(e.destinos(), QStringList({destino13, caso.destino}));
        QCOMPARE(avisos.size(), 2);
        QCOMPARE(avisos[1][0].toString(), caso.texto);
        QCOMPARE(e.estadoTS.historia, QStringList({caso.titulo}));
        QCOMPARE(e.barra1.historia, QStringList({QStringLiteral("max 2"), QStringLiteral("0"),
                                                 QStringLiteral("1"), QStringLiteral("2")}));
        QCOMPARE(e.barra2.historia, QStringList({QStringLiteral("1")}));
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos")), QStringList({caso.carpeta}));
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/") + caso.carpeta),
                 QStringList({QStringLiteral("13.html"), QStringLiteral("14.html")}));
        const QByteArray guion = caso.conGuion ? guiones::documento.toLatin1() : QByteArray();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/%1/14.html").arg(caso.carpeta)),
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
        salones.Fcargar(QStringLiteral("14,6A"));
        alumnos.Fcargar(QStringLiteral("14,6A"));
        caso.metodo(salones, alumnos);
        const QByteArray guion = caso.conGuion ? guiones::documento.toLatin1() : QByteArray();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/%1/14.html").arg(caso.carpeta)),
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
        salones.Fcargar(QStringLiteral("14,6A"));
        alumnos.Fcargar(QStringLiteral("14,6A"));
        salones.downSalones();
        alumnos.downInfoAlumno();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/salones/14.html")), todos + "\r\n");
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/infoAlumnos/14.html")), todos + "\r\n");
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
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos")), QStringList({caso.carpeta}));
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/") + caso.carpeta), QStringList());
        QCOMPARE(e.barra1.historia, QStringList({QStringLiteral("max 0"), QStringLiteral("0")}));
        QCOMPARE(e.barra2.historia, QStringList({QStringLiteral("1")}));
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
        salones.Fcargar(QStringLiteral("14,6A"));
        alumnos.Fcargar(QStringLiteral("14,6A"));
        caso.metodo(salones, alumnos);
        QCOMPARE(e.listar(QString()), caso.sinCarpetaDelArchivo);
        QCOMPARE(e.destinos().size(), 1);
        QCOMPARE(e.barra1.valor(), 1);
    }

    void clasesDeDocumento_siguenALosAjustes_data()
    {
        QTest::addColumn<QString>("infoFin");
        QTest::addColumn<QString>("certiFin");
        QTest::addColumn<QString>("tipoInfo");
        QTest::addColumn<QString>("tipoCerti");
        const auto info = QStringLiteral("infoFinal");
        const auto info2 = QStringLiteral("infoFinal2");
        const auto certi = QStringLiteral("certificado");
        QTest::newRow("SI and 3") << QStringLiteral("SI") << QStringLiteral("3") << info2
                                  << QStringLiteral("certificado3");
        QTest::newRow("si and 2") << QStringLiteral("si") << QStringLiteral("2") << info
                                  << QStringLiteral("certificado2");
        QTest::newRow("1 and 1") << QStringLiteral("1") << QStringLiteral("1") << info << certi;
        QTest::newRow("NO and SI") << QStringLiteral("NO") << QStringLiteral("SI") << info << certi;
        QTest::newRow("empty") << QString() << QString() << info << certi;
        QTest::newRow("blank after 3") << QString() << QStringLiteral("3 ") << info << certi;
    }
    void clasesDeDocumento_siguenALosAjustes()
    {
        QFETCH(QString, infoFin);
        QFETCH(QString, certiFin);
        QFETCH(QString, tipoInfo);
        QFETCH(QString, tipoCerti);
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        e.sesion.usaInfoFin2 = infoFin;
        e.sesion.usaCertiFin2 = certiFin;
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("14,6A"));
        alumnos.downInfoFinal();
        alumnos.downCertificado();
        QCOMPARE(e.destinos(),
                 QStringList(
                     {QStringLiteral("/salones/123/2010/%1/14/tessarin/?azar=#&").arg(tipoInfo),
                      QStringLiteral("/salones/123/2010/%1/14/tessarin/?azar=#&").arg(tipoCerti)}));
    }

    void anoDeLaSesion_noCambiaElDeLasDirecciones()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        e.sesion.anoActual = QStringLiteral("2024");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("14,6A"));
        alumnos.downHojaMat();
        QCOMPARE(
            e.destinos(),
            QStringList({QStringLiteral("/alumnos/123/2010/hojaMatricula/14/tessarin/?azar=#&")}));
        QVERIFY(e.existe(QStringLiteral("123-2024/archivos/matriculas/14.html")));
    }

    void respuestaVacia_dejaSoloElGuion()
    {
        Escenario e;
        e.responder("/", "");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("14,6A"));
        alumnos.downInfoFinal();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/infoFinal/14.html")),
                 guiones::documento.toLatin1() + "\r\n");
    }

    void infoAlumnoVacia_dejaSoloElFinDeRenglon()
    {
        Escenario e;
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("14,6A"));
        e.responder("infoAlumno.php", "la ficha anterior");
        alumnos.downInfoAlumno();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/infoAlumnos/14.html")),
                 QByteArray("la ficha anterior\r\n"));
        e.responder("infoAlumno.php", "");
        alumnos.downInfoAlumno();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/infoAlumnos/14.html")),
                 QByteArray("\r\n"));
    }

    void idNoPermitidoEnArchivos_seSaltaYSigueElProximo()
    {
        Escenario e;
        prepararArchivo(e);
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        salones.Fcargar(QStringLiteral("1*2,MALO®NUL,MALO®14,6A"));
        salones.downSalones();
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/salones")),
                 QStringList({QStringLiteral("14.html")}));
        QCOMPARE(e.barra1.valor(), 3);
    }

    void idVacio_daElArchivoPuntoHtml()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        salones.Fcargar(QStringLiteral(",SIN ID"));
        salones.downSalones();
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/salones")),
                 QStringList({QStringLiteral(".html")}));
    }

    void idConSignos_vaSinEscaparEnLaConsulta()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("a&b=c,X"));
        alumnos.downInfoAlumno();
        alumnos.downFotosAlumno();
        const QString base = e.demo.base();
        QCOMPARE(
            e.destinos(),
            QStringList({QStringLiteral(
                             "/querys/tessarin/infoAlumno.php?azar=#&idcolegio=123&idalumno=a&b=c"),
                         QStringLiteral("/querys/tessarin/existe.php?azar=#&f=") + base
                             + QStringLiteral("/jup/images/123/a&b=c-alumno.jpg")}));
    }

    void foto_seGuardaSoloSiElServicioDiceSi_data()
    {
        QTest::addColumn<QByteArray>("respuesta");
        QTest::addColumn<bool>("guardada");
        QTest::newRow("SI") << QByteArray("SI") << true;
        QTest::newRow("NO") << QByteArray("NO") << false;
        QTest::newRow("si") << QByteArray("si") << false;
        QTest::newRow("blank before") << QByteArray(" SI") << false;
        QTest::newRow("line end") << QByteArray("SI\r\n") << false;
        QTest::newRow("empty") << QByteArray("") << false;
        QTest::newRow("long reply that begins so") << QByteArray("SI existe la foto") << false;
    }
    void foto_seGuardaSoloSiElServicioDiceSi()
    {
        QFETCH(QByteArray, respuesta);
        QFETCH(bool, guardada);
        Escenario e;
        e.responder("existe.php", respuesta);
        e.responder("GET /jup", "nunca");
        tcAlumnos alumnos(e.entorno);
        const AlumnoDemo &alumno = e.demo.escuela().alumnos.first();
        alumnos.Fcargar(alumno.id + u',' + alumno.nombre);
        QSignalSpy avisos(&alumnos, &tcLista::nuevaDescarga);
        alumnos.downFotosAlumno();
        const QString foto = QStringLiteral("/jup/images/123/%1-alumno.jpg").arg(alumno.id);
        const QString consulta =
            QStringLiteral("/querys/tessarin/existe.php?azar=#&f=") + e.demo.base() + foto;
        QCOMPARE(e.destinos().first(), consulta);
        QCOMPARE(e.destinos().count(foto), guardada ? 1 : 0);
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/fotos")),
                 guardada ? QStringList({alumno.id + QStringLiteral("-alumno.jpg")})
                          : QStringList());
        QCOMPARE(e.estadoTS.historia,
                 QStringList({QStringLiteral("Descargando Imagenes de Alumnos")}));
        QCOMPARE(avisos.size(), 1);
        QCOMPARE(avisos[0][0].toString(),
                 QStringLiteral("Foto de alumno (%1): %2 - 1 de 1").arg(alumno.id, alumno.nombre));
        QCOMPARE(e.barra1.valor(), 1);
        QCOMPARE(e.pausas.size(), guardada ? 1 : 0);
    }

    void cuentaDelTexto_seLeeDeNuevoEnCadaRegistro()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        salones.Fcargar(QStringLiteral("1,A®2,B"));
        QStringList textos;
        connect(&salones, &tcLista::nuevaDescarga, this, [&](const QString &texto) {
            textos.append(texto);
            if (salones.Count() == 2)
                salones.Fcargar(QStringLiteral("3,C"));
        });
        salones.downSalones();
        QCOMPARE(textos, QStringList({QStringLiteral("Descargando Salon (1): A - 1 de 2"),
                                      QStringLiteral("Descargando Salon (2): B - 2 de 3"),
                                      QStringLiteral("Descargando Salon (3): C - 3 de 3")}));
    }
};

QTEST_MAIN(tst_descargas)
#include "tst_descargas.moc"
