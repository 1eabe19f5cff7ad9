// SPDX-License-Identifier: MIT
// The print panel of the window, worked with real clicks.
#include "shell/VentanaDePrueba.h"

#include "escenario/ImpresionAnotada.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class tst_impresion : public QObject {
    Q_OBJECT
private:
    static void abrir(VentanaDePrueba &v)
    {
        v.ingresar();
        v.elegir("Option1_2");
        v.e.demo.olvidarPeticiones();
    }

private Q_SLOTS:
    void tipo_cambiaElTituloYElPeriodo_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<bool>("conPeriodo");
        QTest::newRow("Boletines") << u"Boletines"_s << u"Imprimir Boletines del Periodo"_s << true;
        QTest::newRow("Informe Final")
            << u"Informe Final"_s << u"Imprimir Informes Finales del Salon"_s << false;
        QTest::newRow("Certificado Final")
            << u"Certificado Final"_s << u"Imprimir Certificados Finales del Salon"_s << false;
        QTest::newRow("Paz Y Salvos") << u"Paz Y Salvos"_s << u"Imprimir Paz y salvos"_s << false;
        for (const char *tipo : {"Observador", "Hoja Matricula", "Planilla Trabajo"})
            QTest::newRow(tipo) << QString::fromLatin1(tipo) << u"Seleccione que Imprimir"_s
                                << false;
    }
    void tipo_cambiaElTituloYElPeriodo()
    {
        QFETCH(QString, tipo);
        QFETCH(QString, titulo);
        QFETCH(bool, conPeriodo);
        VentanaDePrueba v;
        abrir(v);
        QCOMPARE(v.elemento<QLabel>("Label7_2")->text(), u"2. Imprimir Boletines del Periodo"_s);
        QVERIFY(v.visible("Combo1"));
        v.elegirEnLista("ComboTipo", tipo);
        QCOMPARE(v.elemento<QLabel>("Label7_2")->text(), titulo);
        QCOMPARE(v.visible("Combo1"), conPeriodo);
    }

    void volverABoletines_conservaElPeriodo()
    {
        VentanaDePrueba v;
        abrir(v);
        v.elegirEnLista("ComboTipo", u"Boletines"_s);
        v.elegirEnLista("Combo1", u"Periodo 3"_s);
        v.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        QVERIFY(!v.visible("Combo1"));
        v.elegirEnLista("ComboTipo", u"Boletines"_s);
        QVERIFY(v.visible("Combo1"));
        QCOMPARE(v.elemento<QComboBox>("Combo1")->currentText(), u"Periodo 3"_s);
    }

    void sinTipo_imprimirNoHaceNada()
    {
        VentanaDePrueba v;
        abrir(v);
        v.elegirSalon();
        v.conCuadros([&] { v.clic("Command2"); });
        QCOMPARE(v.mensajes, QStringList());
        QCOMPARE(v.e.destinos(), QStringList());
    }

    void sinSalon_pideElSalonAunqueLaListaTengaElFoco()
    {
        VentanaDePrueba v;
        abrir(v);
        v.elegirEnLista("ComboTipo", u"Boletines"_s);
        v.elegirEnLista("Combo1", u"Periodo 1"_s);
        v.elemento("List1")->setFocus();
        v.conCuadros([&] { v.clic("Command2"); });
        QCOMPARE(v.mensajes, QStringList({u"Seleccione un Salon"_s}));
        QCOMPARE(v.e.destinos(), QStringList());
    }

    void sinPeriodo_pideElPeriodo()
    {
        VentanaDePrueba v;
        abrir(v);
        v.elegirEnLista("ComboTipo", u"Boletines"_s);
        v.elegirSalon();
        v.conCuadros([&] { v.clic("Command2"); });
        QCOMPARE(v.mensajes, QStringList({u"Seleccione el Periodo"_s}));
        QCOMPARE(v.e.destinos(), QStringList());
    }

    void trabajo_escondeLosBotonesYLosDevuelve()
    {
        VentanaDePrueba v;
        abrir(v);
        v.elegirEnLista("ComboTipo", u"Boletines"_s);
        v.elegirEnLista("Combo1", u"Periodo 2"_s);
        v.elegirSalon();
        v.elegir("Option2_1");
        bool escondidos = false;
        v.reteniendo(
            "/boletin", [&] { v.clic("Command2"); },
            [&] {
                escondidos = v.visible("Barra3") && !v.visible("Command2")
                             && !v.visible("Option2_0") && !v.visible("Option2_1")
                             && v.elemento<QProgressBar>("Barra3")->maximum() == 1;
            });
        QVERIFY(escondidos);
        QVERIFY(v.visible("Command2") && v.visible("Option2_0") && v.visible("Option2_1"));
        QVERIFY(!v.visible("Barra3"));
        QCOMPARE(v.e.listar(u"123-2010/archivos/boletines/P2"_s).size(), 2);
    }

    void panel_sePreparaSoloConLaListaYaRecibida()
    {
        VentanaDePrueba v;
        abrir(v);
        v.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        v.elegirSalon();
        v.elegir("Option2_1");
        QStringList visto;
        v.reteniendo(
            "tipo=matrix&salon=", [&] { v.clic("Command2"); },
            [&] {
                for (const char *nombre : {"Barra3", "Command2", "Option2_0", "Option2_1"})
                    visto.append(v.visible(nombre) ? u"se ve"_s : u"no se ve"_s);
            });
        QCOMPARE(visto, QStringList({u"no se ve"_s, u"se ve"_s, u"se ve"_s, u"se ve"_s}));
    }

    void segundoTrabajo_empiezaSuBarraDeCero()
    {
        VentanaDePrueba v(TamanoEscuela{2010, 1, 3, 1});
        abrir(v);
        v.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        v.elegirSalon();
        v.elegir("Option2_1");
        const auto *barra = v.elemento<QProgressBar>("Barra3");
        v.clic("Command2");
        QCOMPARE(barra->value(), 2);
        int enElPrimero = -1;
        v.reteniendo(
            "/pazYsalvo/", [&] { v.clic("Command2"); }, [&] { enElPrimero = barra->value(); });
        QCOMPARE(enElPrimero, 1);
        QCOMPARE(barra->value(), 2);
    }

    void observador_seImprimeAunqueElTituloPidaElegir()
    {
        VentanaDePrueba v;
        abrir(v);
        v.elegirEnLista("ComboTipo", u"Observador"_s);
        v.elegirSalon();
        v.elegir("Option2_1");
        v.conCuadros([&] { v.clic("Command2"); });
        QCOMPARE(v.e.listar(u"123-2010/archivos/observador"_s).size(), 2);
    }

    void listaVacia_dejaLaBarraComoEstaba()
    {
        VentanaDePrueba v;
        abrir(v);
        v.e.responder("tipo=matrix&salon=", "");
        v.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        v.elegirSalon();
        v.conCuadros([&] { v.clic("Command2"); });
        QCOMPARE(v.mensajes, QStringList());
        QCOMPARE(v.elemento<QProgressBar>("Barra3")->value(), 0);
        QVERIFY(v.visible("Command2"));
    }

    void hojasDeMatriculaSinHistorico_muestranLaRespuestaYNoImprimen()
    {
        const ObreroAnotado obrero;
        {
            VentanaDePrueba v;
            abrir(v);
            v.elegirEnLista("ComboTipo", u"Hoja Matricula"_s);
            v.elegirSalon();
            v.elegir("Option2_1");
            v.e.responder("tipo=matrix&salon=", "77,<b>ANA</b>");
            v.conCuadros([&] { v.clic("Command2"); });
            QCOMPARE(v.mensajes, QStringList({u"77,<b>ANA</b>"_s}));
        }
        QVERIFY(!obrero.arrancado()); // no archive yet, so no sheet to print
    }

    void cambiarASoloDescargar_enMedioDelTrabajoValeDesdeEntonces()
    {
        const ObreroAnotado obrero;
        {
            VentanaDePrueba v;
            abrir(v);
            v.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
            v.elegirSalon();
            const QString segundo = v.e.demo.escuela().alumnos[1].id;
            v.reteniendo(
                "/pazYsalvo/" + segundo.toLatin1(), [&] { v.clic("Command2"); },
                [&] { v.elemento<QRadioButton>("Option2_1")->setChecked(true); });
        }
        QTRY_VERIFY(obrero.terminado());
        QCOMPARE(obrero.documentos().size(), 1);
    }
};

QTEST_MAIN(tst_impresion)
#include "tst_impresion.moc"
