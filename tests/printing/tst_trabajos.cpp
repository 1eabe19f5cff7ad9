// SPDX-License-Identifier: MIT
// What every downloading job asks for, rewrites, stores and prints, and its checks.
#include "escenario/Escenario.h"
#include "escenario/ImpresionAnotada.h"
#include "printing/casosTrabajo.h"
#include "printing/trabajos.h"

#include <QTest>

using namespace casosTrabajo;

class tst_trabajos : public QObject {
    Q_OBJECT
private:
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
