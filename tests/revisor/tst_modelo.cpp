// SPDX-License-Identifier: MIT
// The findings as a tree: groups, order, search, and many of them.
#include "ModeloHallazgos.h"

#include <QAbstractItemModelTester>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<Renglon> algunos()
{
    return {{.quien = u"Zoe"_s, .id = u"9"_s, .salon = u"10-1"_s, .que = u"Vacía"_s, .clase = 2},
            {.quien = u"Ana"_s, .id = u"2"_s, .salon = u"8-2"_s, .que = u"Vacía"_s, .clase = 2},
            {.quien = u"Ana"_s, .id = u"1"_s, .salon = u"8-2"_s, .que = u"Falta"_s, .clase = 1},
            {.que = u"Portada"_s, .archivo = u"index.html"_s, .clase = 0},
            {.quien = u"PÉREZ, Íñigo"_s,
             .id = u"3"_s,
             .salon = u"8-2"_s,
             .que = u"Falta"_s,
             .archivo = u"archivos/infoFinal/3.html"_s,
             .clase = 1}};
}

// Each group's line, and below it "who id" of its findings.
QStringList lineas(const ModeloHallazgos &modelo)
{
    QStringList todas;
    for (int grupo = 0; grupo < modelo.rowCount(); ++grupo) {
        const QModelIndex madre = modelo.index(grupo, 0);
        todas.append(madre.data().toString());
        for (int fila = 0; fila < modelo.rowCount(madre); ++fila) {
            const Renglon *uno = modelo.renglon(modelo.index(fila, 0, madre));
            todas.append(u"  "_s + uno->quien + uno->id);
        }
    }
    return todas;
}

} // namespace

class tst_modelo : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void porSalon_primeroLoQueEsDeTodos()
    {
        ModeloHallazgos modelo;
        const QAbstractItemModelTester reglas(
            &modelo, QAbstractItemModelTester::FailureReportingMode::QtTest);
        modelo.poner(algunos());
        QCOMPARE(lineas(modelo), QStringList({u"De ningún salón en particular (1)"_s, u"  "_s,
                                              u"8-2 (3)"_s, u"  Ana1"_s, u"  Ana2"_s,
                                              u"  PÉREZ, Íñigo3"_s, u"10-1 (1)"_s, u"  Zoe9"_s}));
        QCOMPARE(modelo.mostrados(), 5);
    }

    void porClase_enElOrdenDeLasReglas()
    {
        ModeloHallazgos modelo;
        const QAbstractItemModelTester reglas(
            &modelo, QAbstractItemModelTester::FailureReportingMode::QtTest);
        modelo.poner(algunos());
        modelo.agrupar(ModeloHallazgos::Agrupado::PorClase);
        QCOMPARE(lineas(modelo),
                 QStringList({u"Portada (1)"_s, u"  "_s, u"Falta (2)"_s, u"  Ana1"_s,
                              u"  PÉREZ, Íñigo3"_s, u"Vacía (2)"_s, u"  Ana2"_s, u"  Zoe9"_s}));
    }

    void buscar_sinAcentosNiMayusculas_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("cuantos");
        QTest::newRow("nothing leaves all") << u""_s << 5;
        QTest::newRow("blanks leave all") << u"  "_s << 5;
        QTest::newRow("without accents") << u"perez inigo"_s << 1;
        QTest::newRow("with them") << u"Pérez"_s << 1;
        QTest::newRow("a kind") << u"VACIA"_s << 2;
        QTest::newRow("a classroom and a kind") << u"8-2 falta"_s << 2;
        QTest::newRow("a file") << u"infofinal/3"_s << 1;
        QTest::newRow("an id") << u"9"_s << 1;
        QTest::newRow("one word fits, the other does not") << u"ana zoe"_s << 0;
    }
    void buscar_sinAcentosNiMayusculas()
    {
        QFETCH(QString, texto);
        QFETCH(int, cuantos);
        ModeloHallazgos modelo;
        const QAbstractItemModelTester reglas(
            &modelo, QAbstractItemModelTester::FailureReportingMode::QtTest);
        modelo.poner(algunos());
        modelo.buscar(texto);
        QCOMPARE(modelo.mostrados(), cuantos);
        modelo.buscar({});
        QCOMPARE(modelo.mostrados(), 5);
    }

    void indiceDe_loHallaAgrupadoDeOtroModo()
    {
        ModeloHallazgos modelo;
        modelo.poner(algunos());
        const Renglon *zoe = modelo.renglon(modelo.index(0, 0, modelo.index(2, 0)));
        QCOMPARE(zoe->quien, u"Zoe"_s);
        modelo.agrupar(ModeloHallazgos::Agrupado::PorClase);
        QCOMPARE(modelo.renglon(modelo.indiceDe(zoe)), zoe);
        modelo.buscar(u"ana"_s);
        QVERIFY(!modelo.indiceDe(zoe).isValid());
    }

    void lectorDePantalla_oyeElRenglonEntero()
    {
        ModeloHallazgos modelo;
        modelo.poner(algunos());
        const QModelIndex uno = modelo.index(2, 0, modelo.index(1, 0));
        QCOMPARE(uno.data(Qt::AccessibleTextRole).toString(),
                 u"PÉREZ, Íñigo, 8-2, Falta, archivos/infoFinal/3.html"_s);
    }
};

QTEST_GUILESS_MAIN(tst_modelo)
#include "tst_modelo.moc"
