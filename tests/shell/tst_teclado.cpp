// SPDX-License-Identifier: MIT
// The window without a mouse: keys go to the window, as the display server gives them, and from
// there to whatever has the focus.
#include "shell/VentanaDePrueba.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr TamanoEscuela tresSalones{2010, 3, 2, 1};

QByteArray nombreDe(Qt::Key tecla)
{
    return QKeySequence(tecla).toString(QKeySequence::PortableText).toLatin1();
}

QByteArrayList modos()
{
    return {"Option1_0", "Option1_1", "Option1_2", "Option1_3"};
}

// Does something each time the window is activated, while that is being told.
class AlActivarse : public QObject {
public:
    AlActivarse(QWidget &ventana, std::function<void()> hacer) : m_hacer(std::move(hacer))
    {
        ventana.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *suceso) override
    {
        if (suceso->type() == QEvent::WindowActivate)
            m_hacer();
        return false;
    }

private:
    std::function<void()> m_hacer;
};

class Teclista : public VentanaDePrueba {
public:
    explicit Teclista(const TamanoEscuela &tamano = Escenario::pequena()) : VentanaDePrueba(tamano)
    {
        activar();
    }

    // As a window manager does when the window opens, and when a box before it has gone.
    void activar()
    {
        form.activateWindow();
        QTRY_VERIFY(form.isActiveWindow());
    }

    void tecla(Qt::Key tecla, Qt::KeyboardModifiers con = Qt::NoModifier) const
    {
        QTest::keyClick(form.windowHandle(), tecla, con);
    }

    // The element that gets what is typed, by its name.
    QByteArray foco() const
    {
        const QWidget *elemento = form.focusWidget();
        return elemento ? elemento->objectName().toLatin1() : QByteArray();
    }

    // The mode chosen, once its panel and no other is seen.
    QByteArray modo() const
    {
        QByteArray elegido;
        for (int indice = 0; indice < 4; ++indice) {
            const QByteArray numero = QByteArray::number(indice);
            const bool marcado = elemento<QRadioButton>("Option1_" + numero)->isChecked();
            if (marcado != visible("Frame" + QByteArray::number(indice + 1)))
                return "marcado y panel no concuerdan";
            if (marcado)
                elegido += "Option1_" + numero;
        }
        return elegido;
    }

    // The rows of a list that are chosen.
    QList<int> elegidas(const QByteArray &lista) const
    {
        QList<int> filas;
        const auto *elementos = elemento<QListWidget>(lista);
        for (int fila = 0; fila < elementos->count(); ++fila) {
            if (elementos->item(fila)->isSelected())
                filas.append(fila);
        }
        return filas;
    }

    // Three classrooms and three archives, the focus in one of the lists, come to by Tab.
    void llegarA(const QByteArray &lista)
    {
        for (const char *carpeta : {"123-2008", "123-2009", "123-2010"})
            QVERIFY(QDir().mkpath(e.nativa(QString::fromLatin1(carpeta))));
        form.cargaListaHistoricos();
        ingresar();
        elegir(lista == "List1" ? "Option1_2" : "Option1_3");
        tecla(Qt::Key_Tab);
        QCOMPARE(foco(), lista);
        QCOMPARE(elemento<QListWidget>(lista)->currentRow(), 0);
        QCOMPARE(elegidas(lista), QList<int>());
    }

    void prepararTrabajo()
    {
        ingresar();
        elegir("Option1_2");
        elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        elegirSalon();
        elegir("Option2_1");
        elemento("Command2")->setFocus();
    }

    using VentanaDePrueba::elemento;
    template <typename Elemento = QWidget>
    Elemento *elemento(const QByteArray &nombre) const
    {
        return VentanaDePrueba::elemento<Elemento>(nombre.constData());
    }
    using VentanaDePrueba::visible;
    bool visible(const QByteArray &nombre) const
    {
        return VentanaDePrueba::visible(nombre.constData());
    }
};

} // namespace

class tst_teclado : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void teclaEnLaFilaActual_laElige_data()
    {
        QTest::addColumn<QByteArray>("lista");
        QTest::addColumn<int>("tecla");
        const QList<Qt::Key> teclas = {Qt::Key_Up,    Qt::Key_Down,   Qt::Key_Left,
                                       Qt::Key_Right, Qt::Key_Return, Qt::Key_Enter,
                                       Qt::Key_Home,  Qt::Key_PageUp, Qt::Key_Space};
        for (const char *lista : {"List1", "lstHistoricos"}) {
            for (const Qt::Key tecla : teclas)
                QTest::addRow("%s %s", lista, nombreDe(tecla).constData())
                    << QByteArray(lista) << int(tecla);
        }
    }
    void teclaEnLaFilaActual_laElige()
    {
        QFETCH(QByteArray, lista);
        QFETCH(int, tecla);
        Teclista t(tresSalones);
        t.llegarA(lista);
        QVERIFY(!t.elemento("Command4")->isEnabled());
        t.tecla(static_cast<Qt::Key>(tecla));
        QCOMPARE(t.elegidas(lista), QList<int>({0}));
        QCOMPARE(t.elemento<QListWidget>(lista)->currentRow(), 0);
        QCOMPARE(t.elemento("Command4")->isEnabled(), lista == "lstHistoricos");
        QCOMPARE(t.foco(), lista);
    }

    void filaYaElegida_dejaIrLaFlechaASuVecina_data() { lasDosListas(); }
    void filaYaElegida_dejaIrLaFlechaASuVecina()
    {
        QFETCH(QByteArray, lista);
        Teclista t(tresSalones);
        t.llegarA(lista);
        t.tecla(Qt::Key_Down);
        QCOMPARE(t.elegidas(lista), QList<int>({0}));
        t.tecla(Qt::Key_Down);
        QCOMPARE(t.elegidas(lista), QList<int>({1}));
        t.tecla(Qt::Key_Return); // chosen already: there is nothing to do
        QCOMPARE(t.elegidas(lista), QList<int>({1}));
        t.tecla(Qt::Key_End);
        QCOMPARE(t.elegidas(lista), QList<int>({2}));
        t.tecla(Qt::Key_Up);
        QCOMPARE(t.elegidas(lista), QList<int>({1}));
    }

    // Ctrl with an arrow moves the current row and leaves the choice to the next key.
    void ultimaFilaActual_seEligeDondeEsta_data()
    {
        QTest::addColumn<QByteArray>("lista");
        QTest::addColumn<int>("tecla");
        for (const char *lista : {"List1", "lstHistoricos"}) {
            for (const Qt::Key tecla : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_PageDown})
                QTest::addRow("%s %s", lista, nombreDe(tecla).constData())
                    << QByteArray(lista) << int(tecla);
        }
    }
    void ultimaFilaActual_seEligeDondeEsta()
    {
        QFETCH(QByteArray, lista);
        QFETCH(int, tecla);
        Teclista t(tresSalones);
        t.llegarA(lista);
        auto *filas = t.elemento<QListWidget>(lista);
        filas->setCurrentRow(2, QItemSelectionModel::NoUpdate);
        t.tecla(static_cast<Qt::Key>(tecla));
        QCOMPARE(filas->currentRow(), 2);
        QCOMPARE(t.elegidas(lista), QList<int>({2}));
    }

    void listaVacia_noEligeNada_data() { lasDosListas(); }
    void listaVacia_noEligeNada()
    {
        QFETCH(QByteArray, lista);
        Teclista t;
        t.ingresar();
        t.elegir(lista == "List1" ? "Option1_2" : "Option1_3");
        t.elemento<QListWidget>(lista)->clear();
        t.elemento(lista)->setFocus();
        for (const Qt::Key tecla : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Return})
            t.tecla(tecla);
        QVERIFY(!t.elemento("Command4")->isEnabled());
        QCOMPARE(t.foco(), lista);
    }

    void listaLlenadaDeNuevo_empiezaOtraVezPorLaPrimera()
    {
        Teclista t(tresSalones);
        t.llegarA("lstHistoricos");
        t.tecla(Qt::Key_Down);
        t.tecla(Qt::Key_Down);
        t.form.cargaListaHistoricos();
        QCOMPARE(t.elegidas("lstHistoricos"), QList<int>());
        t.tecla(Qt::Key_Down);
        QCOMPARE(t.elegidas("lstHistoricos"), QList<int>({0}));
    }

    void ingresoRechazado_dejaLaClaveElegidaParaEscribirla_data()
    {
        QTest::addColumn<QString>("usuario");
        QTest::addColumn<QString>("clave");
        QTest::addColumn<QByteArray>("desde");
        QTest::newRow("a wrong password, from its box")
            << u"secretaria"_s << u"otra"_s << QByteArray("txtPwd");
        QTest::newRow("a wrong password, from the user's box")
            << u"secretaria"_s << u"otra"_s << QByteArray("txtUser");
        QTest::newRow("a wrong password, from the button")
            << u"secretaria"_s << u"otra"_s << QByteArray("Command1");
        QTest::newRow("another role") << u"docente"_s << u"demo2010"_s << QByteArray("txtPwd");
    }
    void ingresoRechazado_dejaLaClaveElegidaParaEscribirla()
    {
        QFETCH(QString, usuario);
        QFETCH(QString, clave);
        QFETCH(QByteArray, desde);
        Teclista t;
        t.escribirCuenta(usuario, clave);
        t.elemento(desde)->setFocus();
        t.conCuadros([&] { t.tecla(Qt::Key_Return); });
        QCOMPARE(t.mensajes.size(), 1);
        t.activar();
        QCOMPARE(t.foco(), QByteArray("txtPwd"));
        QCOMPARE(t.elemento<QLineEdit>("txtPwd")->selectedText().size(), clave.size());
        QTest::keyClick(t.form.windowHandle(), Qt::Key_X);
        QCOMPARE(t.elemento<QLineEdit>("txtPwd")->text(), u"x"_s);
        QCOMPARE(t.elemento<QLineEdit>("txtUser")->text(), usuario);
    }

    void ingresoAceptado_dejaElFocoEnLosModos()
    {
        Teclista t;
        t.escribirCuenta(u"secretaria"_s, u"demo2010"_s);
        t.tecla(Qt::Key_Return);
        QCOMPARE(t.foco(), QByteArray("Option1_0"));
        t.tecla(Qt::Key_Right);
        QCOMPARE(t.modo(), QByteArray("Option1_1"));
        t.tecla(Qt::Key_Tab);
        QCOMPARE(t.foco(), QByteArray("Command3"));
    }

    void descarga_dejaElFocoEnSuModo()
    {
        Teclista t;
        t.ingresar();
        t.elegir("Option1_1");
        t.tecla(Qt::Key_Tab);
        QCOMPARE(t.foco(), QByteArray("Command3"));
        QByteArray enMarcha;
        t.reteniendo(
            "/jscript/", [&] { t.conCuadros([&] { t.tecla(Qt::Key_Space); }); },
            [&] { enMarcha = t.foco(); });
        QCOMPARE(t.mensajes, QStringList({u"Listo Historico"_s}));
        QCOMPARE(enMarcha, QByteArray("Option1_1"));
        QCOMPARE(t.foco(), QByteArray("Option1_1"));
    }

    void trabajo_devuelveElFocoAImprimir_data()
    {
        QTest::addColumn<int>("tecla");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("space") << int(Qt::Key_Space);
    }
    void trabajo_devuelveElFocoAImprimir()
    {
        QFETCH(int, tecla);
        Teclista t;
        t.prepararTrabajo();
        QByteArray enMarcha;
        t.reteniendo(
            "/pazYsalvo/", [&] { t.tecla(static_cast<Qt::Key>(tecla)); },
            [&] { enMarcha = t.foco(); });
        QCOMPARE(enMarcha, QByteArray("Option1_2"));
        QCOMPARE(t.foco(), QByteArray("Command2"));
        t.e.demo.olvidarPeticiones();
        t.tecla(static_cast<Qt::Key>(tecla)); // and so the next job is one key away
        QVERIFY(t.e.destinos().join(u' ').contains(u"/pazYsalvo/"_s));
    }

    // The box takes the window's place; it may come back only while the job runs.
    void trabajoConMensaje_devuelveElFocoAImprimir()
    {
        Teclista t;
        t.prepararTrabajo();
        t.elegirEnLista("ComboTipo", u"Hoja Matricula"_s);
        t.elemento("Command2")->setFocus();
        QByteArray enMarcha;
        t.reteniendo(
            "logo.png", [&] { t.conCuadros([&] { t.tecla(Qt::Key_Return); }); },
            [&] {
                enMarcha = t.foco();
                t.activar();
            });
        QCOMPARE(t.mensajes.size(), 1);
        QCOMPARE(enMarcha, QByteArray("Option1_2")); // at no element that is hidden
        QCOMPARE(t.foco(), QByteArray("Command2"));
    }

    void trabajoRechazado_dejaElFocoEnImprimir()
    {
        Teclista t;
        t.prepararTrabajo();
        t.elemento<QListWidget>("List1")->clearSelection();
        t.conCuadros([&] { t.tecla(Qt::Key_Return); });
        QCOMPARE(t.mensajes, QStringList({u"Seleccione un Salon"_s}));
        QCOMPARE(t.foco(), QByteArray("Command2"));
    }

    // Whoever has gone elsewhere while the job ran stays there.
    void focoMovidoEnElTrabajo_quedaDondeEsta_data()
    {
        QTest::addColumn<QList<int>>("teclas");
        QTest::addColumn<QByteArray>("foco");
        QTest::newRow("to the classrooms") << QList<int>{int(Qt::Key_Tab)} << QByteArray("List1");
        QTest::newRow("to another mode")
            << QList<int>{int(Qt::Key_Right)} << QByteArray("Option1_3");
        QTest::newRow("to another mode and its list")
            << QList<int>{int(Qt::Key_Right), int(Qt::Key_Tab)} << QByteArray("lstHistoricos");
    }
    void focoMovidoEnElTrabajo_quedaDondeEsta()
    {
        QFETCH(QList<int>, teclas);
        QFETCH(QByteArray, foco);
        Teclista t;
        QVERIFY(QDir().mkpath(t.e.nativa(u"123-2010"_s)));
        t.form.cargaListaHistoricos();
        t.prepararTrabajo();
        t.reteniendo(
            "/pazYsalvo/", [&] { t.tecla(Qt::Key_Return); },
            [&] {
                for (const int tecla : teclas)
                    t.tecla(static_cast<Qt::Key>(tecla));
            });
        QVERIFY(!t.elemento("Command2")->isHidden());
        QCOMPARE(t.foco(), foco);
    }

    // The mode changed by a key that leaves the focus on no element of the job's.
    void panelOcultoAlTerminar_noRecibeElFoco()
    {
        Teclista t;
        t.prepararTrabajo();
        t.reteniendo(
            "/pazYsalvo/", [&] { t.tecla(Qt::Key_Return); },
            [&] { t.elemento<QRadioButton>("Option1_3")->setChecked(true); });
        QVERIFY(t.visible("Frame4"));
        QCOMPARE(t.foco(), QByteArray("Option1_2"));
    }

    void ctrlYNumero_eligeElModo()
    {
        Teclista t;
        t.ingresar();
        for (const int indice : {2, 1, 3, 0, 3}) {
            t.tecla(static_cast<Qt::Key>(Qt::Key_1 + indice), Qt::ControlModifier);
            QCOMPARE(t.modo(), modos()[indice]);
            QCOMPARE(t.foco(), modos()[indice]);
        }
        t.tecla(Qt::Key_2, Qt::ControlModifier | Qt::KeypadModifier);
        QCOMPARE(t.modo(), modos()[1]);
        t.tecla(Qt::Key_5, Qt::ControlModifier);
        t.tecla(Qt::Key_3);
        QCOMPARE(t.modo(), modos()[1]);
    }

    void ctrlYNumeroDelModoElegido_noMueveElFoco()
    {
        Teclista t;
        t.tecla(Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(t.foco(), QByteArray("txtUser"));
        t.ingresar();
        t.elegir("Option1_2");
        t.tecla(Qt::Key_Tab);
        t.tecla(Qt::Key_3, Qt::ControlModifier);
        QCOMPARE(t.foco(), QByteArray("List1"));
    }

    void ctrlYNumeroDeModoOculto_noHaceNada()
    {
        Teclista t;
        for (int indice = 0; indice < 4; ++indice) {
            t.tecla(static_cast<Qt::Key>(Qt::Key_1 + indice), Qt::ControlModifier);
            QCOMPARE(t.modo(), QByteArray("Option1_0"));
            QCOMPARE(t.foco(), QByteArray("txtUser"));
        }
        QCOMPARE(t.elemento<QLineEdit>("txtUser")->text(), QString());
    }

    void ctrlYNumero_valeMientrasDescarga()
    {
        Teclista t;
        t.ingresar();
        t.elegir("Option1_1");
        QByteArray enMarcha;
        t.reteniendo(
            "/jscript/", [&] { t.conCuadros([&] { t.clic("Command3"); }); },
            [&] {
                t.tecla(Qt::Key_4, Qt::ControlModifier);
                enMarcha = t.modo();
            });
        QCOMPARE(enMarcha, QByteArray("Option1_3"));
        QCOMPARE(t.modo(), QByteArray("Option1_3"));
    }

    // The window may come before the box, which then comes before it; a key that is quicker than
    // that changes nothing.
    void ctrlYNumero_noValeAnteUnMensaje()
    {
        Teclista t;
        t.ingresar();
        t.elegir("Option1_2");
        t.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        bool activa = false;
        QByteArray modo;
        QTimer::singleShot(0, &t.form, [&] {
            t.tecla(Qt::Key_4, Qt::ControlModifier);
            const AlActivarse antesDelCuadro(t.form, [&] {
                activa = t.form.isActiveWindow();
                QTest::keyClick(&t.form, Qt::Key_4, Qt::ControlModifier); // at once
            });
            t.form.activateWindow();
            activa = QTest::qWaitFor([&] { return activa; });
            modo = t.modo();
            t.cuadrosAbiertos().first()->accept();
        });
        t.clic("Command2");
        QVERIFY(activa);
        QCOMPARE(modo, QByteArray("Option1_2"));
        t.activar();
        t.tecla(Qt::Key_4, Qt::ControlModifier);
        QCOMPARE(t.modo(), QByteArray("Option1_3"));
    }

    void flechas_recorrenLosModosEnRueda_data()
    {
        QTest::addColumn<int>("tecla");
        QTest::addColumn<QByteArrayList>("recorrido");
        const QByteArrayList ida = {"Option1_1", "Option1_2", "Option1_3", "Option1_0",
                                    "Option1_1"};
        const QByteArrayList vuelta = {"Option1_3", "Option1_2", "Option1_1", "Option1_0",
                                       "Option1_3"};
        QTest::newRow("right") << int(Qt::Key_Right) << ida;
        QTest::newRow("down") << int(Qt::Key_Down) << ida;
        QTest::newRow("left") << int(Qt::Key_Left) << vuelta;
        QTest::newRow("up") << int(Qt::Key_Up) << vuelta;
    }
    void flechas_recorrenLosModosEnRueda()
    {
        QFETCH(int, tecla);
        QFETCH(QByteArrayList, recorrido);
        Teclista t;
        t.ingresar();
        t.elemento("Option1_0")->setFocus();
        for (const QByteArray &modo : recorrido) {
            t.tecla(static_cast<Qt::Key>(tecla));
            QCOMPARE(t.modo(), modo);
            QCOMPARE(t.foco(), modo);
        }
    }

    void flechasAntesDelIngreso_quedanEnLogin()
    {
        Teclista t;
        t.elemento("Option1_0")->setFocus();
        for (const Qt::Key tecla : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up}) {
            t.tecla(tecla);
            QCOMPARE(t.modo(), QByteArray("Option1_0"));
            QCOMPARE(t.foco(), QByteArray("Option1_0"));
        }
    }

    void modoOculto_seSalta()
    {
        Teclista t;
        t.ingresar();
        t.elemento("Option1_1")->setVisible(false);
        t.elemento("Option1_0")->setFocus();
        t.tecla(Qt::Key_Right);
        QCOMPARE(t.modo(), QByteArray("Option1_2"));
        t.tecla(Qt::Key_Left);
        QCOMPARE(t.modo(), QByteArray("Option1_0"));
    }

private:
    static void lasDosListas()
    {
        QTest::addColumn<QByteArray>("lista");
        QTest::newRow("classrooms") << QByteArray("List1");
        QTest::newRow("archives") << QByteArray("lstHistoricos");
    }
};

QTEST_MAIN(tst_teclado)
#include "tst_teclado.moc"
