// SPDX-License-Identifier: MIT
#include "archive/etiquetas.h"
#include "escenario/Escenario.h"
#include "records/tcMaterias.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString direccion = u"/imgTXT.php?txt="_s;
const QStringList fijas = {direccion + u"Nro%20Perdidas"_s, direccion + u"Promedio"_s,
                           direccion + u"Puesto"_s};
const QString labels = u"123-2010/archivos/images/labels"_s;
} // namespace

class tst_etiquetas : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void materiaConGuion_sePideYSeGuardaConBlanco()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.Fcargar(u"1,CIENCIAS-NATURALES,CIENCIAS-EXACTAS"_s);
        materias.downLabels();
        QCOMPARE(e.destinos(),
                 QStringList({direccion + u"CIENCIAS%20NATURALES"_s,
                              direccion + u"CIENCIAS%20EXACTAS"_s, direccion + u"Total%20Fallas"_s})
                     + fijas);
        QCOMPARE(e.listar(labels),
                 QStringList({u"CIENCIAS EXACTAS"_s, u"CIENCIAS NATURALES"_s, u"Nro Perdidas"_s,
                              u"Promedio"_s, u"Puesto"_s, u"Total Fallas"_s}));
        QVERIFY(e.leer(labels + u"/CIENCIAS NATURALES"_s).startsWith("\x89PNG"));
    }

    // On the wire a blank is "%20" either way: what the callers build shows the difference.
    void soloLasAreas_escribenSusBlancosComoPorcentaje20()
    {
        const auto base = u"http://s a"_s;
        const auto texto = u"EDUCACIÓN FÍSICA y 50%"_s;
        QCOMPARE(etiquetas::direccionDeMateria(base, texto),
                 u"http://s a/imgTXT.php?txt=EDUCACIÓN FÍSICA y 50%"_s);
        QCOMPARE(etiquetas::direccionDeArea(base, texto),
                 u"http://s%20a/imgTXT.php?txt=EDUCACIÓN%20FÍSICA%20y%2050%"_s);
    }

    void areaConElTextoDelTitulo_noSePideDosVeces()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.Fcargar(u"1,A,TOTAL-FALLAS"_s);
        materias.downLabels();
        QCOMPARE(e.destinos(),
                 QStringList({direccion + u"A"_s, direccion + u"TOTAL%20FALLAS"_s}) + fijas);
    }

    void areasRepetidas_danUnaSolaEtiqueta()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.Fcargar(u"1,ÁLGEBRA,MATEMÁTICAS®2,CÁLCULO,Matemáticas®3,ARTE,"_s);
        materias.downLabels();
        QCOMPARE(e.destinos(), QStringList({direccion + u"%C1LGEBRA"_s, direccion + u"C%C1LCULO"_s,
                                            direccion + u"ARTE"_s, direccion + u"MATEM%C1TICAS"_s,
                                            direccion, direccion + u"Total%20Fallas"_s})
                                   + fijas);
        QVERIFY(e.existe(labels + u"/MATEMÁTICAS"_s));
    }

    void sinMaterias_quedanLosCuatroTitulos()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.downLabels();
        QCOMPARE(e.listar(labels),
                 QStringList({u"Nro Perdidas"_s, u"Promedio"_s, u"Puesto"_s, u"Total Fallas"_s}));
    }

    void avance_vaPorMateriasYLuegoPorAreas()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.Fcargar(u"1,A,X®2,B,X"_s);
        materias.downLabels();
        QCOMPARE(e.estadoTS.historia, QStringList({u"Descargando Labels de Materias"_s}));
        QCOMPARE(e.estadoHS.historia,
                 QStringList({u"Label: A - 1 de 2"_s, u"Label: B - 2 de 2"_s,
                              u"Label: X - 1 de 2"_s, u"Label: Total Fallas - 2 de 2"_s}));
        QCOMPARE(e.barra1.historia, QStringList({u"max 2"_s, u"0"_s, u"1"_s, u"2"_s, u"max 2"_s,
                                                 u"0"_s, u"1"_s, u"2"_s}));
        QCOMPARE(e.barra2.historia, QStringList({u"1"_s}));
        QCOMPARE(e.pausas.size(), 7);
    }

    void etiquetaQueFalla_noDejaArchivoYSigueLaProxima()
    {
        Escenario e;
        Falla falla;
        falla.clase = Falla::CierraEnMedio;
        e.demo.fallar("txt=A", falla);
        tcMaterias materias(e.entorno);
        materias.Fcargar(u"1,A,X®2,B:C,X®3,D,X"_s);
        materias.downLabels();
        QVERIFY(!e.existe(labels + u"/A"_s));
        QVERIFY(e.existe(labels + u"/D"_s));
        QVERIFY(e.listar(labels).filter(u"B"_s).isEmpty());
    }

    void distintas_guardaLaPrimeraDeCadaUna()
    {
        QCOMPARE(etiquetas::distintas({u"B"_s, u"a"_s, u"b"_s, QString(), QString(), u"A"_s}),
                 QStringList({u"B"_s, u"a"_s, QString()}));
    }
};

QTEST_MAIN(tst_etiquetas)
#include "tst_etiquetas.moc"
