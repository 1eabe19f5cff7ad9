// SPDX-License-Identifier: MIT
// What the desktop is told of the window's jobs.
#include "platform/BusPrivado.h"
#include "platform/OidoBarra.h"
#include "shell/Faenas.h"
#include "shell/VentanaDePrueba.h"

#include <QApplication>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const auto descarga = u"Se está descargando un histórico"_s;
const auto lote = u"Se está imprimiendo un lote de documentos"_s;

bool hayBus = false;

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

    static QList<double> avances(const OidoBarra &oido)
    {
        QList<double> cuales;
        for (const auto &dicho : oido.dichos)
            cuales.append(dicho.visible ? dicho.avance : -1);
        return cuales;
    }

private Q_SLOTS:
    void init() { QGuiApplication::setDesktopFileName(u"example.parvanel.prueba"_s); }

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

    void barraDeTareas_sigueALaDeMasAdentro()
    {
        if (!hayBus)
            QSKIP("no dbus-daemon to talk to");
        const OidoBarra oido;
        Faenas faenas;
        double larga = 0.1;
        double corta = 0.5;
        Faena primera = faenas.empezar(descarga, [&] { return larga; });
        QTRY_COMPARE(avances(oido), QList<double>({0.1}));
        larga = 0.2;
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2}));
        Faena segunda = faenas.empezar(lote, [&] { return corta; });
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2, 0.5}));
        corta = 0.75;
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2, 0.5, 0.75}));
        segunda.reset();
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2, 0.5, 0.75, 0.2}));
        primera.reset();
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2, 0.5, 0.75, 0.2, -1}));
    }

    void avanceQueNoCambiaDeCentesima_noSeDice()
    {
        if (!hayBus)
            QSKIP("no dbus-daemon to talk to");
        const OidoBarra oido;
        Faenas faenas;
        int miradas = 0;
        {
            const Faena faena = faenas.empezar(descarga, [&] { return 0.5 + 0.0001 * miradas++; });
            QTRY_VERIFY(miradas > 4);
        }
        QTRY_VERIFY(!oido.dichos.isEmpty() && !oido.dichos.last().visible);
        QCOMPARE(avances(oido), QList<double>({0.5, -1}));
    }
};

int main(int argc, char *argv[])
{
    const BusPrivado bus; // before anything could ask for another
    hayBus = bus.corre();
    const QApplication aplicacion(argc, argv);
    tst_faenas pruebas;
    return QTest::qExec(&pruebas, argc, argv);
}

#include "tst_faenas.moc"
