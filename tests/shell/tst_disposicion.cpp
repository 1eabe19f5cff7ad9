// SPDX-License-Identifier: MIT
// Where things stand: nothing jumps, nothing is out of reach, and a large screen gains no emptiness
// between what belongs together.
#include "shell/VentanaDePrueba.h"

#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

class tst_disposicion : public QObject {
    Q_OBJECT
private:
    static QRect lugarDe(const VentanaDePrueba &v, const char *nombre)
    {
        const QWidget *elemento = v.elemento(nombre);
        return {elemento->mapTo(&v.form, QPoint()), elemento->size()};
    }

    // Once the layouts have been worked out.
    static void asentar() { QCoreApplication::processEvents(); }

    static QList<QRect> lugares(const VentanaDePrueba &v,
                                std::initializer_list<const char *> cuales)
    {
        asentar();
        QList<QRect> lugares;
        for (const char *cual : cuales)
            lugares.append(lugarDe(v, cual));
        return lugares;
    }

private Q_SLOTS:
    void ingreso_deUnAnchoYEnSuLugar()
    {
        VentanaDePrueba v;
        const auto todos = {"ficha", "txtUser", "txtPwd", "Command1"};
        const QList<QRect> antes = lugares(v, todos);
        QCOMPARE(antes[0].width(), 320);
        QCOMPARE(antes[0].center().x(), v.form.rect().center().x());
        v.ingresar();
        QVERIFY(v.visible("Label5"));
        QCOMPARE(lugares(v, todos), antes);
    }

    void trabajoDeImpresion_nadaSalta()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        v.elegirSalon();
        const auto todos = {"List1", "ComboTipo", "Label7_2", "Line2", "Label6_2", "Label3"};
        const QList<QRect> antes = lugares(v, todos);
        v.elegirEnLista("ComboTipo", u"Hoja Matricula"_s); // whose period is not asked for
        QVERIFY(!v.visible("Combo1"));
        QCOMPARE(lugares(v, todos), antes);
        bool corrio = false;
        v.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        v.clic("Option2_1");
        v.reteniendo(
            "/alumnos/", [&] { v.conCuadros([&] { v.clic("Command2"); }); },
            [&] {
                corrio = true;
                QVERIFY(v.visible("Barra3"));
                QVERIFY(!v.visible("Command2"));
                QCOMPARE(lugares(v, todos), antes);
            });
        QVERIFY(corrio);
        QCOMPARE(lugares(v, todos), antes);
    }

    void cadaModo_pideLoMismo()
    {
        VentanaDePrueba v;
        v.ingresar();
        QSet<int> anchos;
        QSet<int> altos;
        for (const char *modo : {"Option1_0", "Option1_1", "Option1_2", "Option1_3"}) {
            v.elegir(modo);
            asentar();
            anchos.insert(v.form.minimumSizeHint().width());
            altos.insert(v.form.minimumSizeHint().height());
        }
        QCOMPARE(anchos.size(), 1);
        QCOMPARE(altos.size(), 1);
        // The free area of 1024 x 600 at 150 % and of 1366 x 768 at 200 %, less a panel and a
        // title.
        QVERIFY(*anchos.begin() <= 660);
        QVERIFY(*altos.begin() <= 300);
    }

    void ventana_noPideMasQueLaPantalla()
    {
        const VentanaDePrueba v;
        const QSize libre = v.form.screen()->availableSize();
        QVERIFY(v.form.width() <= libre.width() && v.form.height() <= libre.height());
    }

    void pantallaGrande_contenidosJuntosYSoloCrecenLasListas()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        const int altoLista = lugares(v, {"List1"})[0].height();
        const int altoCampo = lugares(v, {"ComboTipo"})[0].height();
        v.form.resize(1920, 1080);
        asentar();
        for (const char *modo : {"Option1_1", "Option1_2", "Option1_3"}) {
            v.elegir(modo);
            const QRect panel = lugares(v, {"columna"})[0];
            QCOMPARE(panel.width(), 760);
            QVERIFY(qAbs(panel.center().x() - v.form.rect().center().x()) <= 1);
        }
        v.elegir("Option1_1");
        const auto avance = lugares(v, {"aviso", "estadoTS", "estadoHS", "Command3"});
        for (qsizetype i = 1; i < avance.size(); ++i)
            QVERIFY(avance[i].top() - avance[i - 1].bottom() < 80);
        v.elegir("Option1_2");
        QVERIFY(lugares(v, {"List1"})[0].height() > altoLista + 400);
        QCOMPARE(lugares(v, {"ComboTipo"})[0].height(), altoCampo);
    }

    void botonPrincipal_deUnAnchoMinimo()
    {
        VentanaDePrueba v;
        v.ingresar();
        for (const auto &[modo, boton] :
             {std::pair("Option1_0", "Command1"), std::pair("Option1_1", "Command3"),
              std::pair("Option1_2", "Command2"), std::pair("Option1_3", "Command4")}) {
            v.elegir(modo);
            QVERIFY(lugares(v, {boton})[0].width() >= 96);
            QVERIFY(v.elemento<QPushButton>(boton)->isDefault()); // which is drawn filled
        }
    }

    void filas_deUnAlto()
    {
        VentanaDePrueba v;
        v.ingresar();
        const auto *lista = v.elemento<QListWidget>("List1");
        QCOMPARE(lista->visualItemRect(lista->item(0)).height(),
                 qMax(26, lista->fontMetrics().height()));
    }

    void pestanas_iguales()
    {
        VentanaDePrueba v;
        v.ingresar();
        const auto todas = lugares(v, {"Option1_0", "Option1_1", "Option1_2", "Option1_3"});
        for (const QRect &una : todas)
            QCOMPARE(una.size(), todas[0].size());
        // Pressed anywhere, not on the text alone.
        auto *ultima = v.elemento("Option1_3");
        QTest::mouseClick(ultima, Qt::LeftButton, {}, QPoint(ultima->width() - 2, 2));
        QVERIFY(v.visible("Frame4"));
    }

    // What has the focus can be seen, however small the window is.
    void pantallaChica_sigueAlFoco()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.form.resize(v.form.minimumSizeHint());
        v.form.activateWindow();
        const auto *rollo = v.elemento<QScrollArea>("rollo");
        for (const auto &[modo, cuales] :
             {std::pair("Option1_1", QList<const char *>{"Command3"}),
              std::pair("Option1_2",
                        QList<const char *>{"List1", "ComboTipo", "Combo1", "Option2_0",
                                            "Option2_1", "Command2", "ComboTipo"})}) {
            v.elegir(modo);
            asentar();
            QVERIFY(rollo->verticalScrollBar()->maximum() > 0);
            QCOMPARE(rollo->horizontalScrollBar()->maximum(), 0);
            for (const char *cual : cuales) {
                v.elemento(cual)->setFocus();
                const QWidget *elemento = v.elemento(cual);
                const QRect visto(elemento->mapTo(rollo->viewport(), QPoint()), elemento->size());
                const QRect lleno = rollo->viewport()->rect();
                QVERIFY2(lleno.contains(visto) || visto.height() > lleno.height(), cual);
            }
        }
    }

    // Left to the panel behind it: an event that comes from the window system goes on until
    // somebody accepts it.
    void ruedaSobreUnaLista_nadaElige()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        for (const char *nombre : {"ComboTipo", "Combo1"}) {
            auto *combo = v.elemento<QComboBox>(nombre);
            combo->setCurrentIndex(1);
            combo->setFocus();
            const QPointF donde(combo->rect().center());
            QWheelEvent rueda(donde, combo->mapToGlobal(donde), {}, QPoint(0, -120), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(combo, &rueda);
            QCOMPARE(combo->currentIndex(), 1);
            QVERIFY(!rueda.isAccepted());
        }
    }

    void pantallaChica_cadaModoDesdeArriba()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.form.resize(v.form.minimumSizeHint());
        v.elegir("Option1_1");
        asentar();
        auto *barra = v.elemento<QScrollArea>("rollo")->verticalScrollBar();
        barra->setValue(barra->maximum());
        QVERIFY(barra->value() > 0);
        v.elegir("Option1_2");
        asentar();
        QCOMPARE(barra->value(), 0);
    }

    void descarga_avisoSeVaConSuLugar()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        QVERIFY(v.visible("aviso"));
        for (const char *nombre : {"Label6_10", "Label6_9", "Label6_8", "Label6_3"})
            QVERIFY(v.elemento("aviso")->isAncestorOf(v.elemento(nombre)));
        bool miro = false;
        v.reteniendo(
            "existe.php", [&] { v.conCuadros([&] { v.clic("Command3"); }); },
            [&] {
                miro = true;
                QVERIFY(!v.visible("aviso"));
            });
        QVERIFY(miro);
    }
};

QTEST_MAIN(tst_disposicion)
#include "tst_disposicion.moc"
