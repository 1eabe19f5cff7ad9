#include "escenario/Escenario.h"
#include "escenario/ImpresionAnotada.h"
#include "pages/guiones.h"
#include "printing/trabajos.h"

#include <QTest>

namespace {

struct Caso {
    QString nombre;
    QString lista;     // the list query's page
    QString carpeta;   // below the document folder
    QString destino;   // for the code 77
    QByteArray pagina; // of paginaCompleta, with @ for the service's address, without the script
    QByteArray guion;
    QStringList imagenes; // targets, in order
};

const QStringList soloLogo = {QStringLiteral("/images/colegios/123/logo.png")};
const QStringList deFinales =
    soloLogo
    + QStringList{QStringLiteral("/images/promovido.png"), QStringLiteral("/images/reprobado.png"),
                  QStringLiteral("/images/colegios/123/rector.png"),
                  QStringLiteral("/images/colegios/123/coordinacion.png")};
const QStringList delObservador = soloLogo
                                  + QStringList{QStringLiteral("/images/apersonal.png"),
                                                QStringLiteral("/images/aconvivencia.png"),
                                                QStringLiteral("/images/aacademico.png")};

// Everything that any row of the table rewrites, the prefix of the school in capitals.
const QByteArray sellos = "<b @/images/promovido.png><b2 @/images/promovido.png>"
                          "<c @/images/reprobado.png><c2 @/images/reprobado.png>";
const QByteArray folio = "<d Folio: \xAE"
                         "folio\xAE>";
const QByteArray iconos = "<e @/images/apersonal.png><e2 @/IMAGES/apersonal.png>"
                          "<f @/images/aconvivencia.png><g @/images/aacademico.png>\xF1\x81";
const QByteArray pagina =
    "<a %/IMAGES/COLEGIOS/123/logo.png><a2 @/images/colegios/123/x.png>" + sellos + folio + iconos;

QByteArray escuela(const QByteArray &prefijo)
{
    return "<a " + prefijo + "logo.png><a2 " + prefijo + "x.png>";
}

const QByteArray porLaRaiz = "../../../123-2010/archivos\\images\\";

QList<Caso> casos()
{
    const QByteArray documento = guiones::documento.toLatin1();
    return {
        {QStringLiteral("Boletines"), QStringLiteral("alumnos"), QStringLiteral("boletines/P2"),
         QStringLiteral("/salones/123/2010/boletin/77/2/tessarin/#"),
         escuela("../../../archivos\\images\\") + sellos + folio + iconos,
         guiones::boletin.toLatin1(), soloLogo},
        {QStringLiteral("Informe Final"), QStringLiteral("alumnos"), QStringLiteral("infofinal"),
         QStringLiteral("/salones/123/2010/infoFinal/77/tessarin/#"),
         escuela("..\\images\\")
             + "<b ..\\images\\promovido.png><b2 @/images/promovido.png>"
               "<c ..\\images\\reprobado.png><c2 @/images/reprobado.png>"
             + folio + iconos,
         documento, deFinales},
        {QStringLiteral("Certificado Final"), QStringLiteral("alumnos"),
         QStringLiteral("certificados"),
         QStringLiteral("/salones/123/2010/certificado/77/tessarin/#"),
         escuela("..\\images\\") + sellos + "<d Folio: _______>" + iconos, documento, deFinales},
        {QStringLiteral("Paz Y Salvos"),
         QStringLiteral("alumnos"),
         QStringLiteral("pazysalvos"),
         QStringLiteral("/alumnos/123/2010/pazYsalvo/77/tessarin/#"),
         escuela("..\\images\\") + sellos + folio + iconos,
         {},
         soloLogo},
        {QStringLiteral("Observador"),
         QStringLiteral("alumnos"),
         QStringLiteral("observador"),
         QStringLiteral("/anotador/123/2010/reporte/77//-1/tessarin/#"),
         escuela(porLaRaiz) + sellos + folio + "<e " + porLaRaiz + "apersonal.png><e2 " + porLaRaiz
             + "apersonal.png><f " + porLaRaiz + "aconvivencia.png><g " + porLaRaiz
             + "aacademico.png>\xF1\x81",
         {},
         delObservador},
        {QStringLiteral("Planilla Trabajo"),
         QStringLiteral("asignaturas"),
         QStringLiteral("planillaT"),
         QStringLiteral("/notas/123/2010/planillaAsignatura/77/tessarin/#"),
         escuela(porLaRaiz) + sellos + folio + iconos,
         {},
         soloLogo},
    };
}

} // namespace

class tst_trabajos : public QObject {
    Q_OBJECT
private:
    static void casosComoDatos()
    {
        QTest::addColumn<int>("indice");
        const auto todos = casos();
        for (int indice = 0; indice < todos.size(); ++indice)
            QTest::newRow(todos[indice].nombre.toLatin1().constData()) << indice;
    }

    static void correr(const QString &nombre, Escenario &e, PanelAnotado &panel)
    {
        Verbos verbos;
        correrTrabajo(nombre, e.entorno, panel, verbos);
    }

private Q_SLOTS:
    void trabajo_pideReescribeGuardaEImprime_data() { casosComoDatos(); }
    void trabajo_pideReescribeGuardaEImprime()
    {
        QFETCH(int, indice);
        const Caso caso = casos()[indice];
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        const QByteArray base = e.demo.base().toLatin1();
        const auto enEscenario = [&](QByteArray texto) {
            return texto.replace('%', base.toUpper()).replace('@', base);
        };
        e.responder("/2010/", enEscenario(pagina));
        e.responder("tipo=matrix&salon=501", indice == 5 ? "77@|@ARTES, DANZA@|@x\xAE"
                                                           "78@|@Y\xAE"
                                                         : "77,ANA\xAE"
                                                           "78,EVA\xAE");

        correr(caso.nombre, e, panel);

        const QString otro =
            QString(caso.destino).replace(QStringLiteral("/77/"), QStringLiteral("/78/"));
        QCOMPARE(
            e.destinos(),
            QStringList({QStringLiteral(
                             "/querys/tessarin/%1.php?azar=#&idcolegio=123&tipo=matrix&salon=501")
                             .arg(caso.lista),
                         caso.destino, otro})
                + caso.imagenes);
        const QString carpeta = QStringLiteral("123-2010/archivos/") + caso.carpeta;
        QCOMPARE(e.listar(carpeta),
                 QStringList({QStringLiteral("77.html"), QStringLiteral("78.html")}));
        QCOMPARE(e.leer(carpeta + QStringLiteral("/77.html")),
                 enEscenario(caso.pagina) + caso.guion + "\r\n");
        QCOMPARE(panel.historia,
                 QStringList({QStringLiteral("empezar 2"), QStringLiteral("avanzar"),
                              QStringLiteral("avanzar"), QStringLiteral("avanzar"),
                              QStringLiteral("terminar")}));
        QTRY_VERIFY(obrero.terminado());
        QCOMPARE(obrero.arranques(), 1);
        QCOMPARE(obrero.documentos(),
                 QStringList({e.nativa(carpeta + QStringLiteral("/77.html")),
                              e.nativa(carpeta + QStringLiteral("/78.html"))}));
        QStringList imagenes;
        for (const QString &destino : caso.imagenes)
            imagenes.append(destino.section(u'/', -1));
        imagenes.sort();
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/images")), imagenes);
    }

    void soloDescargar_nuncaArrancaElObrero_data() { casosComoDatos(); }
    void soloDescargar_nuncaArrancaElObrero()
    {
        QFETCH(int, indice);
        const Caso caso = casos()[indice];
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        e.responder("/2010/", "la pagina de cada uno");
        e.responder("tipo=matrix&salon=501", "77,ANA");
        correr(caso.nombre, e, panel);
        QVERIFY(!e.listar(QStringLiteral("123-2010/archivos/") + caso.carpeta).isEmpty());
        QVERIFY(e.existe(QStringLiteral("123-2010/archivos/images/logo.png")));
        QVERIFY(!obrero.arrancado());
    }

    void sinSalon_avisaYNoHaceNada_data()
    {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("salon");
        for (int indice = 0; indice < 6; ++indice) {
            QTest::addRow("%d, none chosen", indice) << indice << QString();
            QTest::addRow("%d, a line with 0", indice) << indice << QStringLiteral("0   : CERO");
        }
    }
    void sinSalon_avisaYNoHaceNada()
    {
        QFETCH(int, indice);
        QFETCH(QString, salon);
        Escenario e;
        PanelAnotado panel;
        panel.salon = salon;
        panel.elegido = 3;
        correr(casos()[indice].nombre, e, panel);
        QCOMPARE(panel.historia, QStringList({QStringLiteral("mensaje: Seleccione un Salon")}));
        QCOMPARE(e.destinos(), QStringList());
        QCOMPARE(e.listar(QString()), QStringList());
    }

    void boletinesSinPeriodo_avisanYNoHacenNada()
    {
        Escenario e;
        PanelAnotado panel;
        panel.elegido = 0;
        correr(QStringLiteral("Boletines"), e, panel);
        QCOMPARE(panel.historia, QStringList({QStringLiteral("mensaje: Seleccione el Periodo")}));
        QCOMPARE(e.destinos(), QStringList());
        QCOMPARE(e.listar(QString()), QStringList());
    }

    void sinSalonNiPeriodo_pideElSalon()
    {
        Escenario e;
        PanelAnotado panel;
        panel.elegido = 0;
        panel.salon.clear();
        correr(QStringLiteral("Boletines"), e, panel);
        QCOMPARE(panel.historia, QStringList({QStringLiteral("mensaje: Seleccione un Salon")}));
    }

    void losOtrosTrabajos_noMiranElPeriodo()
    {
        Escenario e;
        PanelAnotado panel;
        panel.elegido = 0;
        panel.imprimir = false;
        e.responder("tipo=matrix&salon=501", "77,ANA COMPLETA");
        correr(QStringLiteral("Paz Y Salvos"), e, panel);
        QCOMPARE(panel.historia.last(), QStringLiteral("terminar"));
    }

    void periodo4_vaASuCarpetaYDireccion()
    {
        Escenario e;
        PanelAnotado panel;
        panel.elegido = 4;
        panel.imprimir = false;
        e.responder("tipo=matrix&salon=501", "1234,ANA COMPLETA");
        correr(QStringLiteral("Boletines"), e, panel);
        QVERIFY(
            e.destinos().contains(QStringLiteral("/salones/123/2010/boletin/1234/4/tessarin/#")));
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/boletines/P4")),
                 QStringList({QStringLiteral("1234.html")}));
    }

    void clasesDeDocumento_siguenALosAjustes_data()
    {
        QTest::addColumn<QString>("trabajo");
        QTest::addColumn<QString>("ajuste");
        QTest::addColumn<QString>("clase");
        const auto boletines = QStringLiteral("Boletines");
        const auto informe = QStringLiteral("Informe Final");
        const auto certi = QStringLiteral("Certificado Final");
        QTest::newRow("boletin SI")
            << boletines << QStringLiteral("SI") << QStringLiteral("boletin2");
        QTest::newRow("boletin si")
            << boletines << QStringLiteral("si") << QStringLiteral("boletin");
        QTest::newRow("boletin empty") << boletines << QString() << QStringLiteral("boletin");
        QTest::newRow("final SI") << informe << QStringLiteral("SI")
                                  << QStringLiteral("infoFinal2");
        QTest::newRow("final empty") << informe << QString() << QStringLiteral("infoFinal");
        QTest::newRow("final NO") << informe << QStringLiteral("NO") << QStringLiteral("infoFinal");
        QTest::newRow("certificate 3")
            << certi << QStringLiteral("3") << QStringLiteral("certificado3");
        QTest::newRow("certificate 2")
            << certi << QStringLiteral("2") << QStringLiteral("certificado2");
        QTest::newRow("certificate 1")
            << certi << QStringLiteral("1") << QStringLiteral("certificado");
        QTest::newRow("certificate empty") << certi << QString() << QStringLiteral("certificado");
    }
    void clasesDeDocumento_siguenALosAjustes()
    {
        QFETCH(QString, trabajo);
        QFETCH(QString, ajuste);
        QFETCH(QString, clase);
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        e.sesion.usaBoleta2 = e.sesion.usaInfoFin2 = e.sesion.usaCertiFin2 = ajuste;
        e.responder("tipo=matrix&salon=501", "77,ANA COMPLETA");
        e.responder("/2010/", "la pagina de cada uno");
        correr(trabajo, e, panel);
        QVERIFY2(e.destinos()[1].startsWith(QStringLiteral("/salones/123/2010/%1/77/").arg(clase)),
                 qPrintable(e.destinos()[1]));
    }

    void certificadoSinFolio_quedaIgualSalvoElPrefijoYElGuion()
    {
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        const QByteArray base = e.demo.base().toLatin1();
        e.responder("tipo=matrix&salon=501", "77,ANA COMPLETA");
        e.responder("/certificado/",
                    "<p>Folio: 12</p><img src=" + base + "/images/colegios/123/x.png>\xF1");
        correr(QStringLiteral("Certificado Final"), e, panel);
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/certificados/77.html")),
                 "<p>Folio: 12</p><img src=..\\images\\x.png>\xF1" + guiones::documento.toLatin1()
                     + "\r\n");
    }

    void codigoQueSaleDeLaRaiz_noSeImprime()
    {
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        QFile ajeno(e.personal.filePath(QStringLiteral("doc.html")));
        QVERIFY(ajeno.open(QIODevice::WriteOnly));
        ajeno.close();
        e.responder("tipo=matrix&salon=501", "..\\..\\..\\..\\doc,ANA");
        e.responder("/2010/", "la pagina de cada uno");
        correr(QStringLiteral("Paz Y Salvos"), e, panel);
        QVERIFY(!obrero.arrancado());
    }

    void numeroAlAzar_vaEnLaDireccionYNoEnLaConsulta()
    {
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        e.responder("tipo=matrix&salon=501", "77,ANA COMPLETA");
        e.responder("/2010/", "la pagina de cada uno");
        correr(QStringLiteral("Paz Y Salvos"), e, panel);
        const QString destino = QString::fromLatin1(e.demo.peticiones()[1].destino);
        static const QRegularExpression forma(
            QStringLiteral("^/alumnos/123/2010/pazYsalvo/77/tessarin/(\\d+)$"));
        const int numero = forma.match(destino).captured(1).toInt();
        QVERIFY2(numero >= 1000 && numero <= 1000000, qPrintable(destino));
    }

    void listaVacia_haceCarpetasTraeElLogoYRestaura()
    {
        Escenario e;
        PanelAnotado panel;
        e.responder("tipo=matrix&salon=501", "");
        correr(QStringLiteral("Boletines"), e, panel);
        QCOMPARE(panel.historia,
                 QStringList({QStringLiteral("empezar -1"), QStringLiteral("terminar")}));
        QCOMPARE(e.destinos().last(), QStringLiteral("/images/colegios/123/logo.png"));
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/boletines/P2")), QStringList());
        QVERIFY(e.existe(QStringLiteral("123-2010/archivos/boletines/P2")));
    }

    void paginaQueFalla_seGuardaComoVinoYElResto()
    {
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        Falla falla;
        falla.clase = Falla::CierraAntes;
        e.demo.fallar("/pazYsalvo/77/", falla);
        e.responder("tipo=matrix&salon=501", "77,ANA\xAE"
                                             "a|b,MALA\xAE"
                                             "1002,LUIS");
        correr(QStringLiteral("Paz Y Salvos"), e, panel);
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/pazysalvos/77.html")),
                 QByteArray("\r\n"));
        QVERIFY(e.leer(QStringLiteral("123-2010/archivos/pazysalvos/1002.html")).size() > 200);
        QTRY_VERIFY(obrero.terminado());
        // A document that could not be stored is not there to print.
        QCOMPARE(obrero.documentos().size(), 2);
    }

    void sesionConBlancos_recortaSoloUnaCarpeta()
    {
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        e.sesion.idColegio = QStringLiteral("123 ");
        e.responder("tipo=matrix&salon=501", "");
        correr(QStringLiteral("Observador"), e, panel);
        QCOMPARE(e.listar(QString()), QStringList({QStringLiteral("123-2010")}));
    }

    void otroTexto_noHaceNada_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::newRow("prompt") << QStringLiteral("Seleccione que Imprimir");
        QTest::newRow("empty") << QString();
        QTest::newRow("lower case") << QStringLiteral("boletines");
    }
    void otroTexto_noHaceNada()
    {
        QFETCH(QString, texto);
        Escenario e;
        PanelAnotado panel;
        correr(texto, e, panel);
        QCOMPARE(panel.historia, QStringList());
        QCOMPARE(e.destinos(), QStringList());
    }

    void sinObrero_elTrabajoSigueSinDecirNada()
    {
        const QByteArray antes = qgetenv("PATH");
        qputenv("PATH", "/nada");
        Escenario e;
        PanelAnotado panel;
        e.responder("tipo=matrix&salon=501", "77,ANA\xAE"
                                             "78,EVA");
        e.responder("/2010/", "la pagina de cada uno");
        correr(QStringLiteral("Paz Y Salvos"), e, panel);
        qputenv("PATH", antes);
        QCOMPARE(panel.historia.last(), QStringLiteral("terminar"));
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/pazysalvos")).size(), 2);
    }
};

QTEST_MAIN(tst_trabajos)
#include "tst_trabajos.moc"
