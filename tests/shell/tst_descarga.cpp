// SPDX-License-Identifier: MIT
// The download panel of the window.
#include "escenario/Turnos.h"
#include "shell/VentanaDePrueba.h"

#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace {

// Notes which of the elements that it watches are shown and hidden, in their order.
class CambiosAnotados : public QObject {
public:
    bool eventFilter(QObject *elemento, QEvent *suceso) override
    {
        if (suceso->type() == QEvent::ShowToParent)
            cambios.append(elemento->objectName() + u" se ve"_s);
        if (suceso->type() == QEvent::HideToParent)
            cambios.append(elemento->objectName() + u" se esconde"_s);
        return false;
    }

    QStringList cambios;
};

// Every file by its path, the service's address written "@".
QMap<QString, QByteArray> contenido(const Escenario &e)
{
    QMap<QString, QByteArray> archivos;
    QDirIterator it(e.personal.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile archivo(it.next());
        if (archivo.open(QIODevice::ReadOnly))
            archivos.insert(QDir(e.personal.path()).relativeFilePath(it.filePath()),
                            archivo.readAll().replace(e.demo.base().toLatin1(), "@"));
    }
    return archivos;
}

} // namespace

class tst_descarga : public QObject {
    Q_OBJECT
private:
    static void prepararImpresion(VentanaDePrueba &v)
    {
        v.elegir("Option1_2");
        v.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        v.elegirSalon();
        v.elegir("Option2_1");
    }

private Q_SLOTS:
    void descarga_ocultaMuestraYTermina()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        bool durante = false;
        connect(&v.form.Salones, &tcLista::nuevaDescarga, this, [&] {
            durante = !v.visible("Command3") && v.visible("barra1") && v.visible("barra2")
                      && !v.visible("Label6_3") && !v.visible("Label6_8") && !v.visible("Label6_9")
                      && !v.visible("Label6_10") && v.visible("Label6_0") && v.visible("Option1_2")
                      && v.elemento("Option1_2")->isEnabled() && !v.elemento("Command2")->isHidden()
                      && !v.elemento("Command4")->isHidden();
        });
        v.conCuadros([&] { v.clic("Command3"); });
        QVERIFY(durante);
        QCOMPARE(v.mensajes, QStringList({u"Listo Historico"_s}));
        QCOMPARE(v.titulos, QStringList({QApplication::applicationName()}));
        QCOMPARE(v.botones, QList<int>({QMessageBox::Ok}));
        // The panel stays as it was during the run.
        QVERIFY(!v.visible("Command3"));
        QVERIFY(!v.visible("Label6_10"));
        QVERIFY(v.visible("barra1"));
        QCOMPARE(v.elemento<QProgressBar>("barra2")->maximum(), 8);
        QCOMPARE(v.elemento<QProgressBar>("barra2")->value(), 8);
        QCOMPARE(v.elemento<QLabel>("estadoTS")->text(), u"Descargando Labels de Materias"_s);
        QVERIFY(v.elemento<QLabel>("estadoHS")->text().startsWith(u"Label: Total Fallas - "_s));
        QCOMPARE(v.lineas("lstHistoricos"), QStringList({u"C:\\Quorvela\\123-2010"_s}));
        QVERIFY(v.e.existe(u"123-2010/index.html"_s));
    }

    void descargaConTodoFallando_terminaIgual()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        Falla falla;
        falla.clase = Falla::CierraAntes;
        v.e.demo.fallar("/", falla);
        v.conCuadros([&] { v.clic("Command3"); });
        QCOMPARE(v.mensajes, QStringList({u"Listo Historico"_s}));
        QCOMPARE(v.lineas("lstHistoricos"), QStringList({u"C:\\Quorvela\\123-2010"_s}));
    }

    void botonYAvisos_seEscondenAntesDeCederPorPrimeraVez()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        // Hidden, as a print job leaves the one: the run shows both.
        v.elemento("Command2")->setVisible(false);
        v.elemento("Command4")->setVisible(false);
        CambiosAnotados anotados;
        for (const char *nombre : {"Label6_3", "Label6_10", "Label6_8", "Label6_9", "barra1",
                                   "barra2", "Command3", "Command2", "Command4"})
            v.elemento(nombre)->installEventFilter(&anotados);
        QStringList alCeder;
        int maximo = 0;
        enElProximoTurno(v.form, [&] {
            alCeder = anotados.cambios;
            maximo = v.elemento<QProgressBar>("barra2")->maximum();
        });
        v.conCuadros([&] { v.elemento<QPushButton>("Command3")->click(); });
        QCOMPARE(alCeder,
                 QStringList({u"Label6_3 se esconde"_s, u"Label6_10 se esconde"_s,
                              u"Label6_8 se esconde"_s, u"Label6_9 se esconde"_s, u"barra1 se ve"_s,
                              u"barra2 se ve"_s, u"Command3 se esconde"_s, u"Command2 se ve"_s,
                              u"Command4 se ve"_s}));
        QCOMPARE(anotados.cambios, alCeder); // and nothing after
        QVERIFY(maximo != 8);                // which is the step after the yield
    }

    void listaDeHistoricos_estaAlDiaAntesDelMensaje()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        QStringList conElCuadro;
        v.alVerCuadro = [&] {
            conElCuadro = v.lineas("lstHistoricos");
        };
        v.conCuadros([&] { v.clic("Command3"); });
        QCOMPARE(v.mensajes, QStringList({u"Listo Historico"_s}));
        QCOMPARE(conElCuadro, QStringList({u"C:\\Quorvela\\123-2010"_s}));
    }

    void trabajoYCuadroDentroDeLaDescarga_terminanLosTresConSusArchivos()
    {
        VentanaDePrueba aparte; // the same one after the other
        aparte.ingresar();
        prepararImpresion(aparte);
        aparte.clic("Command2");
        aparte.elegir("Option1_1");
        aparte.conCuadros([&] { aparte.clic("Command3"); });

        VentanaDePrueba v;
        v.ingresar();
        prepararImpresion(v);
        v.elegir("Option1_1");
        qsizetype impresos = 0;
        QStringList enMedio;
        v.conCuadros([&] {
            v.reteniendo(
                "/consolidado/", [&] { v.clic("Command3"); },
                [&] {
                    v.elegir("Option1_2");
                    v.clic("Command2");
                    impresos = v.e.listar(u"123-2010/archivos/pazysalvos"_s).size();
                    v.elemento<QListWidget>("List1")->clearSelection();
                    v.clic("Command2");
                    enMedio = v.mensajes;
                });
        });
        QCOMPARE(impresos, 2); // one a student, with the run still at its request
        QCOMPARE(enMedio, QStringList({u"Seleccione un Salon"_s}));
        QCOMPARE(v.mensajes, QStringList({u"Seleccione un Salon"_s, u"Listo Historico"_s}));
        QVERIFY(v.visible("Command2") && !v.visible("Barra3"));
        const auto esperado = contenido(aparte.e);
        const auto hallado = contenido(v.e);
        QCOMPARE(hallado.keys(), esperado.keys());
        for (auto it = esperado.cbegin(); it != esperado.cend(); ++it)
            QVERIFY2(hallado.value(it.key()) == it.value(), qPrintable(it.key()));
    }
};

QTEST_MAIN(tst_descarga)
#include "tst_descarga.moc"
