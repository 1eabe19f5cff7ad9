// SPDX-License-Identifier: MIT
#include "escenario/Escenario.h"
#include "escenario/ImpresionAnotada.h"
#include "printing/trabajos.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_matriculas : public QObject {
    Q_OBJECT
private:
    static void guardarHoja(Escenario &e, const QString &codigo)
    {
        const QString carpeta = e.nativa(u"123-2010/archivos/matriculas"_s);
        QVERIFY(QDir().mkpath(carpeta));
        QFile hoja(carpeta + u'/' + codigo + u".html"_s);
        QVERIFY(hoja.open(QIODevice::WriteOnly));
        hoja.write("hoja");
    }

    static void correr(Escenario &e, PanelAnotado &panel)
    {
        Verbos verbos;
        correrTrabajo(u"Hoja Matricula"_s, e.entorno, panel, verbos);
    }

private Q_SLOTS:
    void hojasGuardadas_seImprimenTrasMostrarLaRespuesta_data()
    {
        QTest::addColumn<bool>("imprimir");
        QTest::newRow("Descargar e Imprimir") << true;
        QTest::newRow("Solo Descargar prints as well") << false;
    }
    void hojasGuardadas_seImprimenTrasMostrarLaRespuesta()
    {
        QFETCH(bool, imprimir);
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = imprimir;
        guardarHoja(e, u"77"_s);
        guardarHoja(e, u"79"_s);
        e.responder("tipo=matrix&salon=501", "77,ANA PE\xD1"
                                             "A\xAE"
                                             "78,SIN HOJA\xAE"
                                             "79,EVA\xAE");
        correr(e, panel);
        QCOMPARE(panel.historia, QStringList({u"mensaje: 77,ANA PEÑA®78,SIN HOJA®79,EVA®"_s,
                                              u"empezar 3"_s, u"avanzar"_s, u"avanzar"_s,
                                              u"avanzar"_s, u"avanzar"_s, u"terminar"_s}));
        QCOMPARE(e.destinos(),
                 QStringList(
                     {u"/querys/tessarin/alumnos.php?azar=#&idcolegio=123&tipo=matrix&salon=501"_s,
                      u"/images/colegios/123/logo.png"_s}));
        QTRY_VERIFY(obrero.terminado());
        QCOMPARE(obrero.documentos(),
                 QStringList({e.nativa(u"123-2010/archivos/matriculas/77.html"_s),
                              e.nativa(u"123-2010/archivos/matriculas/79.html"_s)}));
    }

    void sinArchivo_muestraLaRespuestaYNoImprimeNada()
    {
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        e.responder("tipo=matrix&salon=501", "77,ANA\xAE"
                                             "78,EVA");
        correr(e, panel);
        QCOMPARE(panel.historia, QStringList({u"mensaje: 77,ANA®78,EVA"_s, u"empezar 1"_s,
                                              u"avanzar"_s, u"avanzar"_s, u"terminar"_s}));
        QVERIFY(!obrero.arrancado());
        QCOMPARE(e.listar(QString()), QStringList()); // and makes no folder of its own
    }

    void logo_quedaEnLaCarpetaDeImagenes()
    {
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        guardarHoja(e, u"77"_s);
        e.responder("tipo=matrix&salon=501", "77,ANA\xAE");
        correr(e, panel);
        QCOMPARE(e.listar(u"123-2010/archivos"_s), QStringList({u"images"_s, u"matriculas"_s}));
        QCOMPARE(e.listar(u"123-2010/archivos/images"_s), QStringList({u"logo.png"_s}));
        QVERIFY(e.leer(u"123-2010/archivos/images/logo.png"_s).startsWith("\x89PNG"));
    }

    void sinSalon_avisaYNoHaceNada()
    {
        Escenario e;
        PanelAnotado panel;
        panel.salon.clear();
        correr(e, panel);
        QCOMPARE(panel.historia, QStringList({u"mensaje: Seleccione un Salon"_s}));
        QCOMPARE(e.destinos(), QStringList());
    }
};

QTEST_MAIN(tst_matriculas)
#include "tst_matriculas.moc"
