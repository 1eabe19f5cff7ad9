// SPDX-License-Identifier: MIT
// When the window's jobs begin and end, and how far each has come.
#include "shell/VentanaDePrueba.h"

#include <QApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const auto descarga = u"Se está descargando un histórico"_s;
const auto lote = u"Se está imprimiendo un lote de documentos"_s;

} // namespace

class tst_faenas : public QObject {
    Q_OBJECT
private:
    static void prepararImpresion(VentanaDePrueba &v, const QString &tipo)
    {
        v.elegir("Option1_2");
        v.elegirEnLista("ComboTipo", tipo);
        v.elegirSalon();
        v.elegir("Option2_1");
    }

private Q_SLOTS:
    void descarga_duraHastaElMensajeYLlegaAlFin()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        QList<double> avances;
        connect(&v.form.Alumnos, &tcLista::nuevaDescarga, this, [&] {
            QCOMPARE(v.faenasEnCurso(), QStringList{descarga});
            avances.append(v.faenas.first()->avance());
        });
        QStringList anteElCuadro = {u"no se vio"_s};
        v.alVerCuadro = [&] {
            anteElCuadro = v.faenasEnCurso();
        };
        v.conCuadros([&] { v.clic("Command3"); });
        QCOMPARE(anteElCuadro, QStringList());
        QCOMPARE(v.faenas.size(), 1);
        QCOMPARE(v.faenas.first()->alTerminar, 1.0);
        QVERIFY(!avances.isEmpty());
        QVERIFY(std::is_sorted(avances.begin(), avances.end()));
        QVERIFY(avances.first() > 0.3); // four lists are done by then
        QVERIFY(avances.last() < 0.85); // the labels are two more
    }

    void segundaDescarga_empiezaDeNuevo()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        v.conCuadros([&] { v.clic("Command3"); });
        QList<double> avances;
        connect(&v.form.Salones, &tcLista::nuevaDescarga, this,
                [&] { avances.append(v.faenas.last()->avance()); });
        v.conCuadros([&] { v.elemento<QPushButton>("Command3")->click(); });
        QCOMPARE(v.faenas.size(), 2);
        QVERIFY(avances.first() < 0.2);
        QCOMPARE(v.faenas.last()->alTerminar, 1.0);
    }

    void trabajo_duraLoQueSuBarra()
    {
        VentanaDePrueba v({.salones = 1, .alumnosPorSalon = 6, .materias = 3});
        v.ingresar();
        prepararImpresion(v, u"Paz Y Salvos"_s);
        bool conBarra = false;
        double mitad = 0;
        v.reteniendo(
            "/pazYsalvo/", [&] { v.clic("Command2"); },
            [&] {
                conBarra = v.visible("Barra3") && v.faenasEnCurso() == QStringList{lote};
                mitad = v.faenas.first()->avance();
            });
        QVERIFY(conBarra);
        QVERIFY(mitad > 0 && mitad < 1);
        QCOMPARE(v.faenasEnCurso(), QStringList());
        QCOMPARE(v.faenas.size(), 1);
        QCOMPARE(v.faenas.first()->alTerminar, 1.0);
    }

    void trabajoSinSalon_noEsFaena()
    {
        VentanaDePrueba v;
        v.ingresar();
        prepararImpresion(v, u"Paz Y Salvos"_s);
        v.elemento<QListWidget>("List1")->clearSelection();
        v.conCuadros([&] { v.clic("Command2"); });
        QCOMPARE(v.mensajes, QStringList{u"Seleccione un Salon"_s});
        QCOMPARE(v.faenas.size(), 0);
    }

    void cuadroDeLasMatriculas_noEsFaenaAun()
    {
        VentanaDePrueba v;
        v.ingresar();
        prepararImpresion(v, u"Hoja Matricula"_s);
        qsizetype anteElCuadro = -1;
        v.alVerCuadro = [&] {
            anteElCuadro = v.faenas.size();
        };
        v.conCuadros([&] { v.clic("Command2"); });
        QCOMPARE(anteElCuadro, 0);
        QCOMPARE(v.faenas.size(), 1);
        QVERIFY(v.faenas.first()->terminada);
    }

    void trabajoDentroDeLaDescarga_cadaUnoLaSuya()
    {
        VentanaDePrueba v;
        v.ingresar();
        prepararImpresion(v, u"Paz Y Salvos"_s);
        v.elegir("Option1_1");
        QStringList despues;
        v.conCuadros([&] {
            v.reteniendo(
                "/consolidado/", [&] { v.clic("Command3"); },
                [&] {
                    v.elegir("Option1_2");
                    v.clic("Command2");
                    despues = v.faenasEnCurso();
                });
        });
        QCOMPARE(despues, QStringList{descarga});
        QCOMPARE(v.faenasEnCurso(), QStringList());
        QCOMPARE(v.faenas.size(), 2);
        QCOMPARE(v.faenas.last()->motivo, lote);
        QCOMPARE(v.faenas.last()->dentroDe, QStringList{descarga});
    }
};

QTEST_MAIN(tst_faenas)
#include "tst_faenas.moc"
