// SPDX-License-Identifier: MIT
// Where the focus is after each handler, for somebody without a mouse.
#include "shell/Teclista.h"

#include <QDir>
#include <QLineEdit>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

// The focus on the button of a job that downloads only.
void prepararTrabajo(Teclista &t)
{
    t.ingresar();
    t.elegir("Option1_2");
    t.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
    t.elegirSalon();
    t.elegir("Option2_1");
    t.elemento("Command2")->setFocus();
}

} // namespace

class tst_foco : public QObject {
    Q_OBJECT
private Q_SLOTS:
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
        prepararTrabajo(t);
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
        prepararTrabajo(t);
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
        prepararTrabajo(t);
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
        prepararTrabajo(t);
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
        prepararTrabajo(t);
        t.reteniendo(
            "/pazYsalvo/", [&] { t.tecla(Qt::Key_Return); },
            [&] { t.elemento<QRadioButton>("Option1_3")->setChecked(true); });
        QVERIFY(t.visible("Frame4"));
        QCOMPARE(t.foco(), QByteArray("Option1_2"));
    }
};

QTEST_MAIN(tst_foco)
#include "tst_foco.moc"
