// SPDX-License-Identifier: MIT
// Codes, settings and replies out of the ordinary.
#include "printing/casosTrabajo.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace casosTrabajo;

class tst_documentos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void clasesDeDocumento_siguenALosAjustes_data()
    {
        QTest::addColumn<QString>("trabajo");
        QTest::addColumn<QString>("ajuste");
        QTest::addColumn<QString>("clase");
        const auto boletines = u"Boletines"_s;
        const auto informe = u"Informe Final"_s;
        const auto certi = u"Certificado Final"_s;
        QTest::newRow("boletin SI") << boletines << u"SI"_s << u"boletin2"_s;
        QTest::newRow("boletin si") << boletines << u"si"_s << u"boletin"_s;
        QTest::newRow("boletin empty") << boletines << QString() << u"boletin"_s;
        QTest::newRow("final SI") << informe << u"SI"_s << u"infoFinal2"_s;
        QTest::newRow("final empty") << informe << QString() << u"infoFinal"_s;
        QTest::newRow("final NO") << informe << u"NO"_s << u"infoFinal"_s;
        QTest::newRow("certificate 3") << certi << u"3"_s << u"certificado3"_s;
        QTest::newRow("certificate 2") << certi << u"2"_s << u"certificado2"_s;
        QTest::newRow("certificate 1") << certi << u"1"_s << u"certificado"_s;
        QTest::newRow("certificate empty") << certi << QString() << u"certificado"_s;
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
        QVERIFY2(e.destinos()[1].startsWith(u"/salones/123/2010/%1/77/"_s.arg(clase)),
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
        correr(u"Certificado Final"_s, e, panel);
        QCOMPARE(e.leer(u"123-2010/archivos/certificados/77.html"_s),
                 "<p>Folio: 12</p><img src=..\\images\\x.png>\xF1" + guiones::documento.toLatin1()
                     + "\r\n");
    }

    void codigoQueSaleDeLaRaiz_noSeImprime()
    {
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        QFile ajeno(e.personal.filePath(u"doc.html"_s));
        QVERIFY(ajeno.open(QIODevice::WriteOnly));
        ajeno.close();
        e.responder("tipo=matrix&salon=501", "..\\..\\..\\..\\doc,ANA");
        e.responder("/2010/", "la pagina de cada uno");
        correr(u"Paz Y Salvos"_s, e, panel);
        QVERIFY(!obrero.arrancado());
    }

    void numeroAlAzar_vaEnLaDireccionYNoEnLaConsulta()
    {
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        e.responder("tipo=matrix&salon=501", "77,ANA COMPLETA");
        e.responder("/2010/", "la pagina de cada uno");
        correr(u"Paz Y Salvos"_s, e, panel);
        const QString destino = QString::fromLatin1(e.demo.peticiones()[1].destino);
        static const QRegularExpression forma(
            u"^/alumnos/123/2010/pazYsalvo/77/tessarin/(\\d+)$"_s);
        const int numero = forma.match(destino).captured(1).toInt();
        QVERIFY2(numero >= 1000 && numero <= 1000000, qPrintable(destino));
    }

    void listaVacia_haceCarpetasTraeElLogoYRestaura()
    {
        Escenario e;
        PanelAnotado panel;
        e.responder("tipo=matrix&salon=501", "");
        correr(u"Boletines"_s, e, panel);
        QCOMPARE(panel.historia, QStringList({u"empezar -1"_s, u"terminar"_s}));
        QCOMPARE(e.destinos().last(), u"/images/colegios/123/logo.png"_s);
        QCOMPARE(e.listar(u"123-2010/archivos/boletines/P2"_s), QStringList());
        QVERIFY(e.existe(u"123-2010/archivos/boletines/P2"_s));
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
        correr(u"Paz Y Salvos"_s, e, panel);
        QCOMPARE(e.leer(u"123-2010/archivos/pazysalvos/77.html"_s), QByteArray("\r\n"));
        QVERIFY(e.leer(u"123-2010/archivos/pazysalvos/1002.html"_s).size() > 200);
        QTRY_VERIFY(obrero.terminado());
        // A document that could not be stored is not there to print.
        QCOMPARE(obrero.documentos().size(), 2);
    }

    // The trimmed folder is not the one that the documents go to: with blanks in the session the
    // jobs that make it leave it empty, and store nothing.
    void sesionConBlancos_recortaSoloLaSegundaCarpetaDeTres_data() { casosComoDatos(); }
    void sesionConBlancos_recortaSoloLaSegundaCarpetaDeTres()
    {
        QFETCH(int, indice);
        const Caso caso = casos()[indice];
        const bool recorta =
            QStringList{u"Boletines"_s, u"Observador"_s, u"Planilla Trabajo"_s}.contains(
                caso.nombre);
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        e.sesion.idColegio = u"123 "_s;
        e.sesion.anoActual = u" 2010"_s;
        e.responder("/2010/", "la pagina de cada uno");
        e.responder("tipo=matrix&salon=501", "77");
        correr(caso.nombre, e, panel);
        const QString carpeta = recorta ? u"123-2010"_s : u"123 - 2010"_s;
        QCOMPARE(e.listar(QString()), QStringList({carpeta}));
        QCOMPARE(e.listar(carpeta), recorta ? QStringList() : QStringList({u"archivos"_s}));
        QCOMPARE(e.existe(carpeta + u"/archivos/"_s + caso.carpeta + u"/77.html"_s), !recorta);
    }

    void codigo_conservaSusBlancosYSusSaltos_data() { casosComoDatos(); }
    void codigo_conservaSusBlancosYSusSaltos()
    {
        QFETCH(int, indice);
        const Caso caso = casos()[indice];
        const QByteArray separador = caso.lista == u"alumnos" ? "," : "@|@";
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        e.responder("/2010/", "la pagina de cada uno");
        e.responder("tipo=matrix&salon=501",
                    " 77 " + separador + "ANA\xAE\r\n78" + separador + "EVA");
        correr(caso.nombre, e, panel);
        const auto destino = [&](const QString &codigo) {
            return QString(caso.destino).replace(u"/77/"_s, u'/' + codigo + u'/');
        };
        QCOMPARE(e.destinos().mid(1, 2),
                 QStringList({destino(u"%2077%20"_s), destino(u"%0D%0A78"_s)}));
        // No file can have a line break in its name.
        QCOMPARE(e.listar(u"123-2010/archivos/"_s + caso.carpeta), QStringList({u" 77 .html"_s}));
    }

    void ajusteCambiadoEnMedio_noCambiaLaClaseDelTrabajo_data()
    {
        QTest::addColumn<int>("indice");
        for (int indice = 0; indice < 3; ++indice)
            QTest::newRow(casos()[indice].nombre.toLatin1().constData()) << indice;
    }
    void ajusteCambiadoEnMedio_noCambiaLaClaseDelTrabajo()
    {
        QFETCH(int, indice);
        const Caso caso = casos()[indice];
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        panel.alAvanzar = [&] {
            e.sesion.usaBoleta2 = e.sesion.usaInfoFin2 = u"SI"_s;
            e.sesion.usaCertiFin2 = u"3"_s;
        };
        e.responder("/2010/", "la pagina de cada uno");
        e.responder("tipo=matrix&salon=501", "77,ANA\xAE"
                                             "78,EVA");
        correr(caso.nombre, e, panel);
        QCOMPARE(e.destinos().mid(1, 2),
                 QStringList({caso.destino, QString(caso.destino).replace(u"/77/"_s, u"/78/"_s)}));
    }
};

QTEST_MAIN(tst_documentos)
#include "tst_documentos.moc"
