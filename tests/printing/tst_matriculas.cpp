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
        const QString carpeta = e.nativa(QStringLiteral("123-2010/archivos/matriculas"));
        QVERIFY(QDir().mkpath(carpeta));
        QFile hoja(carpeta + u'/' + codigo + QStringLiteral(".html"));
        QVERIFY(hoja.open(QIODevice::WriteOnly));
        hoja.write("hoja");
    }

    static void correr(Escenario &e, PanelAnotado &panel)
    {
        Verbos verbos;
        correrTrabajo(QStringLiteral("Hoja Matricula"), e.entorno, panel, verbos);
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
        guardarHoja(e, QStringLiteral("77"));
        guardarHoja(e, QStringLiteral("79"));
        e.responder("tipo=matrix&salon=501", "77,ANA PE\xD1"
                                             "A\xAE"
                                             "78,SIN HOJA\xAE"
                                             "79,EVA\xAE");
        correr(e, panel);
        QCOMPARE(panel.historia,
                 QStringList({QStringLiteral("mensaje: 77,ANA PEÑA®78,SIN HOJA®79,EVA®"),
                              QStringLiteral("empezar 3"), QStringLiteral("avanzar"),
                              QStringLiteral("avanzar"), QStringLiteral("avanzar"),
                              QStringLiteral("avanzar"), QStringLiteral("terminar")}));
        QCOMPARE(
            e.destinos(),
            QStringList(
                {QStringLiteral(
                     "/querys/tessarin/alumnos.php?azar=#&idcolegio=123&tipo=matrix&salon=501"),
                 QStringLiteral("/images/colegios/123/logo.png")}));
        QTRY_VERIFY(obrero.terminado());
        QCOMPARE(obrero.documentos(),
                 QStringList({e.nativa(QStringLiteral("123-2010/archivos/matriculas/77.html")),
                              e.nativa(QStringLiteral("123-2010/archivos/matriculas/79.html"))}));
    }

    void sinArchivo_muestraLaRespuestaYNoImprimeNada()
    {
        const ObreroAnotado obrero;
        Escenario e;
        PanelAnotado panel;
        e.responder("tipo=matrix&salon=501", "77,ANA\xAE"
                                             "78,EVA");
        correr(e, panel);
        QCOMPARE(panel.historia,
                 QStringList({QStringLiteral("mensaje: 77,ANA®78,EVA"), QStringLiteral("empezar 1"),
                              QStringLiteral("avanzar"), QStringLiteral("avanzar"),
                              QStringLiteral("terminar")}));
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
        QCOMPARE(panel.historia, QStringList({QStringLiteral("mensaje: Seleccione un Salon")}));
        QCOMPARE(e.destinos(), QStringList());
    }
};

QTEST_MAIN(tst_matriculas)
#include "tst_matriculas.moc"
