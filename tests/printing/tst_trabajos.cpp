// SPDX-License-Identifier: MIT
// What every downloading job asks for, rewrites, stores and prints, and its checks.
#include "escenario/ProgramasEnPath.h"
#include "printing/casosTrabajo.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace casosTrabajo;

class tst_trabajos : public QObject {
    Q_OBJECT
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

        const QString otro = QString(caso.destino).replace(u"/77/"_s, u"/78/"_s);
        QCOMPARE(e.destinos(),
                 QStringList(
                     {u"/querys/tessarin/%1.php?azar=#&idcolegio=123&tipo=matrix&salon=501"_s.arg(
                          caso.lista),
                      caso.destino, otro})
                     + caso.imagenes);
        const QString carpeta = u"123-2010/archivos/"_s + caso.carpeta;
        QCOMPARE(e.listar(carpeta), QStringList({u"77.html"_s, u"78.html"_s}));
        QCOMPARE(e.leer(carpeta + u"/77.html"_s), enEscenario(caso.pagina) + caso.guion + "\r\n");
        QCOMPARE(panel.historia, QStringList({u"empezar 2"_s, u"avanzar"_s, u"avanzar"_s,
                                              u"avanzar"_s, u"terminar"_s}));
        QTRY_VERIFY(obrero.terminado());
        QVERIFY(obrero.lasVecesDebidas());
        QCOMPARE(obrero.documentos(), QStringList({e.nativa(carpeta + u"/77.html"_s),
                                                   e.nativa(carpeta + u"/78.html"_s)}));
        QStringList imagenes;
        for (const QString &destino : caso.imagenes)
            imagenes.append(destino.section(u'/', -1));
        imagenes.sort();
        QCOMPARE(e.listar(u"123-2010/archivos/images"_s), imagenes);
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
        QVERIFY(!e.listar(u"123-2010/archivos/"_s + caso.carpeta).isEmpty());
        QVERIFY(e.existe(u"123-2010/archivos/images/logo.png"_s));
        QVERIFY(!obrero.arrancado());
    }

    void sinSalon_avisaYNoHaceNada_data()
    {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("salon");
        for (int indice = 0; indice < 6; ++indice) {
            QTest::addRow("%d, none chosen", indice) << indice << QString();
            QTest::addRow("%d, a line with 0", indice) << indice << u"0   : CERO"_s;
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
        QCOMPARE(panel.historia, QStringList({u"mensaje: Seleccione un Salon"_s}));
        QCOMPARE(e.destinos(), QStringList());
        QCOMPARE(e.listar(QString()), QStringList());
    }

    void boletinesSinPeriodo_avisanYNoHacenNada()
    {
        Escenario e;
        PanelAnotado panel;
        panel.elegido = 0;
        correr(u"Boletines"_s, e, panel);
        QCOMPARE(panel.historia, QStringList({u"mensaje: Seleccione el Periodo"_s}));
        QCOMPARE(e.destinos(), QStringList());
        QCOMPARE(e.listar(QString()), QStringList());
    }

    void sinSalonNiPeriodo_pideElSalon()
    {
        Escenario e;
        PanelAnotado panel;
        panel.elegido = 0;
        panel.salon.clear();
        correr(u"Boletines"_s, e, panel);
        QCOMPARE(panel.historia, QStringList({u"mensaje: Seleccione un Salon"_s}));
    }

    void losOtrosTrabajos_noMiranElPeriodo()
    {
        Escenario e;
        PanelAnotado panel;
        panel.elegido = 0;
        panel.imprimir = false;
        e.responder("tipo=matrix&salon=501", "77,ANA COMPLETA");
        correr(u"Paz Y Salvos"_s, e, panel);
        QCOMPARE(panel.historia.last(), u"terminar"_s);
    }

    void periodo4_vaASuCarpetaYDireccion()
    {
        Escenario e;
        PanelAnotado panel;
        panel.elegido = 4;
        panel.imprimir = false;
        e.responder("tipo=matrix&salon=501", "1234,ANA COMPLETA");
        correr(u"Boletines"_s, e, panel);
        QVERIFY(e.destinos().contains(u"/salones/123/2010/boletin/1234/4/tessarin/#"_s));
        QCOMPARE(e.listar(u"123-2010/archivos/boletines/P4"_s), QStringList({u"1234.html"_s}));
    }

    void otroTexto_noHaceNada_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::newRow("prompt") << u"Seleccione que Imprimir"_s;
        QTest::newRow("empty") << QString();
        QTest::newRow("lower case") << u"boletines"_s;
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
        const ProgramasEnPath ninguno;
        ninguno.quitarLosDemas();
        Escenario e;
        PanelAnotado panel;
        e.responder("tipo=matrix&salon=501", "77,ANA\xAE"
                                             "78,EVA");
        e.responder("/2010/", "la pagina de cada uno");
        correr(u"Paz Y Salvos"_s, e, panel);
        QCOMPARE(panel.historia.last(), u"terminar"_s);
        QCOMPARE(e.listar(u"123-2010/archivos/pazysalvos"_s).size(), 2);
    }
};

QTEST_MAIN(tst_trabajos)
#include "tst_trabajos.moc"
