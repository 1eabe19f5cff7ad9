// SPDX-License-Identifier: MIT
// The modes chosen without a mouse.
#include "shell/Teclista.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

class tst_teclado : public QObject {
    Q_OBJECT
private Q_SLOTS:
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
};

QTEST_MAIN(tst_teclado)
#include "tst_teclado.moc"
