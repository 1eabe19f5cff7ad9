// SPDX-License-Identifier: MIT
#include "escenario/Turnos.h"
#include "shell/VentanaDePrueba.h"

#include <QComboBox>
#include <QDir>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {
const char *const paneles[] = {"Frame1", "Frame2", "Frame3", "Frame4"};
const char *const modos[] = {"Option1_0", "Option1_1", "Option1_2", "Option1_3"};
} // namespace

class tst_Form1 : public QObject {
    Q_OBJECT
private:
    // What the elements of the panels hold, and whether they themselves are shown.
    static QStringList estado(const VentanaDePrueba &v)
    {
        QStringList textos;
        for (const char *panel : paneles) {
            const auto elementos = v.elemento(panel)->findChildren<QWidget *>();
            for (const QWidget *elemento : elementos) {
                const QString nombre = elemento->objectName();
                if (nombre.isEmpty() || nombre.startsWith(u"qt_"_s))
                    continue;
                textos.append(nombre + (elemento->isHidden() ? u" hidden"_s : u" shown"_s));
                textos.append(nombre + u' ' + elemento->property("text").toString());
                if (const auto *barra = qobject_cast<const QProgressBar *>(elemento))
                    textos.append(
                        u"%1 %2 of %3"_s.arg(nombre).arg(barra->value()).arg(barra->maximum()));
                if (const auto *lista = qobject_cast<const QListWidget *>(elemento))
                    for (const auto &indice : lista->selectionModel()->selectedIndexes())
                        textos.append(u"%1 %2"_s.arg(nombre).arg(indice.row()));
                if (const auto *combo = qobject_cast<const QComboBox *>(elemento))
                    textos.append(u"%1 %2"_s.arg(nombre).arg(combo->currentIndex()));
                const auto *boton = qobject_cast<const QAbstractButton *>(elemento);
                if (boton && boton->isChecked())
                    textos.append(nombre + u" chosen"_s);
            }
        }
        return textos;
    }

private Q_SLOTS:
    void textos_sonLosDelDiseno_data()
    {
        QTest::addColumn<QByteArray>("nombre");
        QTest::addColumn<QString>("texto");
        const QList<QPair<const char *, QString>> textos = {
            {"Option1_0", u"Login"_s},
            {"Option1_1", u"Descargar Historicos"_s},
            {"Option1_2", u"Imprimir en Lote"_s},
            {"Option1_3", u"Ver mis Historicos"_s},
            {"Label1", u"Usuario"_s},
            {"Label2", u"Contraseña"_s},
            {"Command1", u"Conectar"_s},
            {"Label5", u"Conectado OK:"_s},
            {"Label4", u"Con esta opcion usted descarga los archivos historicos de su colegio para "
                       "que los revise sin necesidad de estar conectado al Internet."_s},
            {"Label7_0", u"Archivos a descargar del año actual"_s},
            {"Label6_0", u"Listado de Sedes y Salones"_s},
            {"Label6_1", u"Listado de Alumnos por Salon"_s},
            {"Label6_4", u"Informe final de calificaciones"_s},
            {"Label6_5", u"Certificado final"_s},
            {"Label6_6", u"Consolidado rendimiento y fallas X salon"_s},
            {"Label6_7", u"Hoja de matricula"_s},
            {"Label6_10", u"Importante"_s},
            {"Label6_9", u"Los archivos historicos existentes, se sobreescriben"_s},
            {"Label6_8", u"El tiempo de descarga es de 99 minutos por cada 500 alumnos (aprox)"_s},
            {"Label6_3", u"El historico sera almacenado en la carpeta: C:\\Quorvela"_s},
            {"Command3", u"Descargar"_s},
            {"estadoTS", u".."_s},
            {"estadoHS", u".."_s},
            {"Option2_0", u"Descargar e Imprimir"_s},
            {"Option2_1", u"Solo Descargar"_s},
            {"Command2", u"Imprimir"_s},
            {"Label7_1", u"1. Seleccione un Salon"_s},
            {"Label7_2", u"2. Imprimir Boletines del Periodo"_s},
            {"Label6_2", u"Los Boletines descargados se almacenan en la carpeta Historicos"_s},
            {"Label3", u"Usuario"_s},
            {"Label10", u"Seleccione el historico del año que desea consultar"_s},
            {"Command4", u"Ver Historico Año Seleccionado"_s},
        };
        for (const auto &[nombre, texto] : textos)
            QTest::newRow(nombre) << QByteArray(nombre) << texto;
    }
    void textos_sonLosDelDiseno()
    {
        QFETCH(QByteArray, nombre);
        QFETCH(QString, texto);
        const VentanaDePrueba v;
        QCOMPARE(v.elemento(nombre.constData())->property("text").toString(), texto);
    }

    void ventana_abreConSuTituloYTamano()
    {
        const VentanaDePrueba v;
        QCOMPARE(v.form.windowTitle(), u"Parvanel Version 4.0"_s);
        QCOMPARE(v.form.size(), QSize(623, 484)); // 9350 by 7260 twips at 15 to the pixel
    }

    // Every mode has room in the window as it opens.
    void cambioDeModo_noCambiaElTamano()
    {
        VentanaDePrueba v;
        v.ingresar();
        for (const char *modo : {"Option1_1", "Option1_2", "Option1_3", "Option1_0"}) {
            v.elegir(modo);
            QCoreApplication::processEvents(); // in which a window that has to grow does so
            QCOMPARE(v.form.size(), QSize(623, 484));
        }
    }

    void listasDesplegables_tienenSusOpciones()
    {
        const VentanaDePrueba v;
        const auto opciones = [&](const char *nombre) {
            QStringList textos;
            const auto *combo = v.elemento<QComboBox>(nombre);
            for (int i = 0; i < combo->count(); ++i)
                textos.append(combo->itemText(i));
            return textos;
        };
        QCOMPARE(opciones("ComboTipo"),
                 QStringList({u"Boletines"_s, u"Informe Final"_s, u"Certificado Final"_s,
                              u"Paz Y Salvos"_s, u"Observador"_s, u"Hoja Matricula"_s,
                              u"Planilla Trabajo"_s}));
        QCOMPARE(opciones("Combo1"),
                 QStringList({u"Periodo 1"_s, u"Periodo 2"_s, u"Periodo 3"_s, u"Periodo 4"_s}));
        QCOMPARE(v.elemento<QComboBox>("ComboTipo")->placeholderText(),
                 u"Seleccione que Imprimir"_s);
        QCOMPARE(v.elemento<QComboBox>("Combo1")->placeholderText(), u"Seleccione..."_s);
        QCOMPARE(v.elemento<QComboBox>("ComboTipo")->currentIndex(), -1);
        QCOMPARE(v.elemento<QComboBox>("Combo1")->currentIndex(), -1);
        QVERIFY(!v.elemento<QComboBox>("ComboTipo")->isEditable());
    }

    void ayudaDeLosTitulos_esLaMisma()
    {
        const VentanaDePrueba v;
        for (const char *nombre : {"Label7_0", "Label7_1", "Label7_2"})
            QCOMPARE(v.elemento(nombre)->toolTip(),
                     u"Escriba el Año para el cual esta descargando el Historico"_s);
    }

    void antesDelIngreso_soloSeOfreceLogin()
    {
        const VentanaDePrueba v;
        QVERIFY(v.visible("Option1_0"));
        for (const char *modo : {"Option1_1", "Option1_2", "Option1_3"})
            QVERIFY2(!v.visible(modo), modo);
        QVERIFY(v.visible("Frame1"));
        for (const char *panel : {"Frame2", "Frame3", "Frame4"})
            QVERIFY2(!v.visible(panel), panel);
        QVERIFY(!v.visible("Label5"));
        QCOMPARE(v.e.sesion.idColegio, u"ERROR"_s);
    }

    void modo_muestraUnSoloPanel_data()
    {
        QTest::addColumn<int>("modo");
        for (int modo = 0; modo < 4; ++modo)
            QTest::newRow(modos[modo]) << modo;
    }
    void modo_muestraUnSoloPanel()
    {
        QFETCH(int, modo);
        VentanaDePrueba v;
        v.ingresar();
        for (const int vez : {1, 2}) {
            Q_UNUSED(vez)
            v.elegir(modos[modo]);
            for (int panel = 0; panel < 4; ++panel)
                QCOMPARE(v.visible(paneles[panel]), panel == modo);
        }
    }

    void paneles_ocupanElMismoLugar()
    {
        VentanaDePrueba v;
        v.ingresar();
        const QPoint lugar = v.elemento("Frame1")->pos();
        for (int modo = 0; modo < 4; ++modo) {
            v.elegir(modos[modo]);
            QCOMPARE(v.elemento(paneles[modo])->pos(), lugar);
        }
    }

    void cambioDeModo_conservaTodoLoDeLosPaneles()
    {
        VentanaDePrueba v;
        QVERIFY(QDir().mkpath(v.e.nativa(u"123-2010"_s)));
        v.form.cargaListaHistoricos();
        v.ingresar();
        v.elegir("Option1_2");
        v.elegirSalon();
        v.elegir("Option2_1");
        QVERIFY(v.elemento<QRadioButton>("Option1_2")->isChecked()); // a group of their own
        v.elegirEnLista("ComboTipo", u"Observador"_s);
        v.elemento<QComboBox>("Combo1")->setCurrentIndex(2);
        v.elegir("Option1_3");
        auto *historicos = v.elemento<QListWidget>("lstHistoricos");
        QTest::mouseClick(historicos->viewport(), Qt::LeftButton, {},
                          historicos->visualItemRect(historicos->item(0)).center());
        v.elegir("Option1_0");
        // As a run and a print job leave them; after the last change of mode.
        v.e.progreso.estadoTS->ponerTexto(u"un paso"_s);
        v.e.progreso.estadoHS->ponerTexto(u"una pagina"_s);
        for (const char *barra : {"barra1", "barra2", "Barra3"}) {
            v.elemento<QProgressBar>(barra)->setMaximum(9);
            v.elemento<QProgressBar>(barra)->setValue(4);
        }
        v.elemento("barra1")->setVisible(true);
        v.elemento("Command3")->setVisible(false);
        const QStringList antes = estado(v);
        for (const char *modo : {"Option1_1", "Option1_2", "Option1_3", "Option1_0"})
            v.elegir(modo);
        QCOMPARE(estado(v), antes);
        QVERIFY(antes.contains(u"Option2_1 chosen"_s) && antes.contains(u"Barra3 4 of 9"_s));
        QVERIFY(antes.contains(u"List1 0"_s) && antes.contains(u"lstHistoricos 0"_s));
    }

    void avisoDeSalones_cedeAntesDeMostrarseYElDeAlumnosNo()
    {
        VentanaDePrueba v;
        QStringList alCeder;
        const Turnos turnos([&] { alCeder.append(v.elemento<QLabel>("estadoHS")->text()); });
        Q_EMIT
        v.form.Alumnos.nuevaDescarga(u"alumno"_s);
        QCOMPARE(v.elemento<QLabel>("estadoHS")->text(), u"alumno"_s);
        QCOMPARE(alCeder, QStringList());
        Q_EMIT
        v.form.Salones.nuevaDescarga(u"salon"_s);
        QCOMPARE(v.elemento<QLabel>("estadoHS")->text(), u"salon"_s);
        QCOMPARE(alCeder, QStringList({u"alumno"_s}));
    }

    void avisoDeMaterias_noCambiaNada()
    {
        VentanaDePrueba v;
        v.form.Materias = std::make_unique<tcMaterias>(v.e.entorno);
        Q_EMIT
        v.form.Materias->nuevaDescarga(u"materia"_s);
        QCOMPARE(v.elemento<QLabel>("estadoHS")->text(), u".."_s);
        QCOMPARE(v.elemento<QLabel>("estadoTS")->text(), u".."_s);
    }

    void cierre_terminaElProgramaSinPreguntar()
    {
        VentanaDePrueba v;
        v.form.close();
        QCOMPARE(v.cierres, 1);
    }

    void barra_noAceptaValoresFueraDeSuRango()
    {
        VentanaDePrueba v;
        auto *barra = v.elemento<QProgressBar>("barra2");
        v.e.progreso.barra2->ponerMaximo(2);
        for (int paso = 0; paso < 4; ++paso)
            v.e.progreso.barra2->avanzar();
        QCOMPARE(barra->value(), 2);
        v.e.progreso.barra2->ponerMaximo(0);
        v.e.progreso.barra2->ponerValor(0);
        v.e.progreso.barra2->avanzar();
        QCOMPARE(barra->maximum(), 0);
        QCOMPARE(barra->value(), 0);
        v.e.progreso.barra2->ponerMaximo(-1);
        QCOMPARE(barra->maximum(), 0);
    }

    void textoDelServicio_seMuestraTalCual()
    {
        VentanaDePrueba v;
        const QString marcado = u"<b>Ana</b> & <img src=x>"_s;
        v.e.progreso.estadoHS->ponerTexto(marcado);
        auto *rotulo = v.elemento<QLabel>("estadoHS");
        QCOMPARE(rotulo->text(), marcado);
        for (const char *nombre : {"estadoHS", "estadoTS", "Label5"})
            QCOMPARE(v.elemento<QLabel>(nombre)->textFormat(), Qt::PlainText);
    }
};

QTEST_MAIN(tst_Form1)
#include "tst_Form1.moc"
