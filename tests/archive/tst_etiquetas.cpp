// SPDX-License-Identifier: MIT
#include "archive/etiquetas.h"
#include "escenario/Escenario.h"
#include "records/tcMaterias.h"

#include <QTest>

namespace {
const QString direccion = QStringLiteral("/imgTXT.php?txt=");
const QStringList fijas = {direccion + QStringLiteral("Nro%20Perdidas"),
                           direccion + QStringLiteral("Promedio"),
                           direccion + QStringLiteral("Puesto")};
const QString labels = QStringLiteral("123-2010/archivos/images/labels");
} // namespace

class tst_etiquetas : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void materiaConGuion_sePideYSeGuardaConBlanco()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.Fcargar(QStringLiteral("1,CIENCIAS-NATURALES,CIENCIAS-EXACTAS"));
        materias.downLabels();
        QCOMPARE(e.destinos(), QStringList({direccion + QStringLiteral("CIENCIAS%20NATURALES"),
                                            direccion + QStringLiteral("CIENCIAS%20EXACTAS"),
                                            direccion + QStringLiteral("Total%20Fallas")})
                                   + fijas);
        QCOMPARE(
            e.listar(labels),
            QStringList({QStringLiteral("CIENCIAS EXACTAS"), QStringLiteral("CIENCIAS NATURALES"),
                         QStringLiteral("Nro Perdidas"), QStringLiteral("Promedio"),
                         QStringLiteral("Puesto"), QStringLiteral("Total Fallas")}));
        QVERIFY(e.leer(labels + QStringLiteral("/CIENCIAS NATURALES")).startsWith("\x89PNG"));
    }

    // On the wire a blank is "%20" either way: what the callers build shows the difference.
    void soloLasAreas_escribenSusBlancosComoPorcentaje20()
    {
        const auto base = QStringLiteral("http://s a");
        const auto texto = QStringLiteral("EDUCACIÓN FÍSICA y 50%");
        QCOMPARE(etiquetas::direccionDeMateria(base, texto),
                 QStringLiteral("http://s a/imgTXT.php?txt=EDUCACIÓN FÍSICA y 50%"));
        QCOMPARE(etiquetas::direccionDeArea(base, texto),
                 QStringLiteral("http://s%20a/imgTXT.php?txt=EDUCACIÓN%20FÍSICA%20y%2050%"));
    }

    void areaConElTextoDelTitulo_noSePideDosVeces()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.Fcargar(QStringLiteral("1,A,TOTAL-FALLAS"));
        materias.downLabels();
        QCOMPARE(e.destinos(), QStringList({direccion + QStringLiteral("A"),
                                            direccion + QStringLiteral("TOTAL%20FALLAS")})
                                   + fijas);
    }

    void areasRepetidas_danUnaSolaEtiqueta()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.Fcargar(QStringLiteral("1,ÁLGEBRA,MATEMÁTICAS®2,CÁLCULO,Matemáticas®3,ARTE,"));
        materias.downLabels();
        QCOMPARE(e.destinos(), QStringList({direccion + QStringLiteral("%C1LGEBRA"),
                                            direccion + QStringLiteral("C%C1LCULO"),
                                            direccion + QStringLiteral("ARTE"),
                                            direccion + QStringLiteral("MATEM%C1TICAS"), direccion,
                                            direccion + QStringLiteral("Total%20Fallas")})
                                   + fijas);
        QVERIFY(e.existe(labels + QStringLiteral("/MATEMÁTICAS")));
    }

    void sinMaterias_quedanLosCuatroTitulos()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.downLabels();
        QCOMPARE(e.listar(labels),
                 QStringList({QStringLiteral("Nro Perdidas"), QStringLiteral("Promedio"),
                              QStringLiteral("Puesto"), QStringLiteral("Total Fallas")}));
    }

    void avance_vaPorMateriasYLuegoPorAreas()
    {
        Escenario e;
        tcMaterias materias(e.entorno);
        materias.Fcargar(QStringLiteral("1,A,X®2,B,X"));
        materias.downLabels();
        QCOMPARE(e.estadoTS.historia,
                 QStringList({QStringLiteral("Descargando Labels de Materias")}));
        QCOMPARE(
            e.estadoHS.historia,
            QStringList({QStringLiteral("Label: A - 1 de 2"), QStringLiteral("Label: B - 2 de 2"),
                         QStringLiteral("Label: X - 1 de 2"),
                         QStringLiteral("Label: Total Fallas - 2 de 2")}));
        QCOMPARE(e.barra1.historia,
                 QStringList({QStringLiteral("max 2"), QStringLiteral("0"), QStringLiteral("1"),
                              QStringLiteral("2"), QStringLiteral("max 2"), QStringLiteral("0"),
                              QStringLiteral("1"), QStringLiteral("2")}));
        QCOMPARE(e.barra2.historia, QStringList({QStringLiteral("1")}));
        QCOMPARE(e.pausas.size(), 7);
    }

    void etiquetaQueFalla_noDejaArchivoYSigueLaProxima()
    {
        Escenario e;
        Falla falla;
        falla.clase = Falla::CierraEnMedio;
        e.demo.fallar("txt=A", falla);
        tcMaterias materias(e.entorno);
        materias.Fcargar(QStringLiteral("1,A,X®2,B:C,X®3,D,X"));
        materias.downLabels();
        QVERIFY(!e.existe(labels + QStringLiteral("/A")));
        QVERIFY(e.existe(labels + QStringLiteral("/D")));
        QVERIFY(e.listar(labels).filter(QStringLiteral("B")).isEmpty());
    }

    void distintas_guardaLaPrimeraDeCadaUna()
    {
        QCOMPARE(
            etiquetas::distintas({QStringLiteral("B"), QStringLiteral("a"), QStringLiteral("b"),
                                  QString(), QString(), QStringLiteral("A")}),
            QStringList({QStringLiteral("B"), QStringLiteral("a"), QString()}));
    }
};

QTEST_MAIN(tst_etiquetas)
#include "tst_etiquetas.moc"
