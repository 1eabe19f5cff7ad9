// SPDX-License-Identifier: MIT
#include "shell/VentanaDePrueba.h"

#include "shell/CuadroMensaje.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>

using namespace Qt::StringLiterals;

class tst_mensajes : public QObject {
    Q_OBJECT
private:
    static QMessageBox *cuadroVisible()
    {
        const auto ventanas = QApplication::topLevelWidgets();
        for (QWidget *ventana : ventanas) {
            auto *cuadro = qobject_cast<QMessageBox *>(ventana);
            if (cuadro && cuadro->isVisible())
                return cuadro;
        }
        return nullptr;
    }

    // Looks at the box while it stands, and closes it. What is seen is compared afterwards: a
    // comparison that fails must not leave the box open.
    template <typename Mirar>
    static void conCuadro(const QString &texto, VentanaDePrueba &v, Mirar mirar)
    {
        QTimer::singleShot(0, &v.form, [&] {
            QMessageBox *cuadro = cuadroVisible();
            mirar(*cuadro);
            cuadro->accept();
        });
        cuadroMensaje(&v.form, texto);
    }

private Q_SLOTS:
    void textoConMarcas_seMuestraTalCual()
    {
        VentanaDePrueba v;
        Qt::TextFormat formato = Qt::AutoText;
        QString texto;
        conCuadro(u"<b>1,ANA</b>®2,EVA"_s, v, [&](const QMessageBox &cuadro) {
            formato = cuadro.textFormat();
            texto = cuadro.text();
        });
        QCOMPARE(formato, Qt::PlainText);
        QCOMPARE(texto, u"<b>1,ANA</b>®2,EVA"_s);
    }

    void mientrasEstaElCuadro_laVentanaNoRecibeEntradaPeroSeCierra()
    {
        VentanaDePrueba v;
        int cierres = 0;
        conCuadro(u"Seleccione un Salon"_s, v, [&](const QMessageBox &) {
            QTest::keyClicks(v.elemento("txtUser"), u"abc"_s);
            QTest::mouseClick(v.elemento("Command1"), Qt::LeftButton);
            // As the window system closes it.
            QCloseEvent cierre;
            QApplication::sendEvent(&v.form, &cierre);
            cierres = v.cierres;
        });
        QCOMPARE(cierres, 1);
        QCOMPARE(v.elemento<QLineEdit>("txtUser")->text(), QString());
        QVERIFY(v.e.demo.peticiones().isEmpty());
        QTest::keyClicks(v.elemento("txtUser"), u"abc"_s);
        QCOMPARE(v.elemento<QLineEdit>("txtUser")->text(), u"abc"_s);
    }

    void textoMasLargoQueLaPantalla_dejaElBotonAlAlcance()
    {
        VentanaDePrueba v;
        QRect pantalla;
        QSize tamano;
        bool plegado = false;
        QRect boton;
        QString texto;
        const QString larguisimo = u"1001,BEDOYA PÉREZ JUAN SEBASTIÁN\u00AE"_s.repeated(800);
        conCuadro(larguisimo, v, [&](const QMessageBox &cuadro) {
            pantalla = QRect(QPoint(), cuadro.screen()->availableSize());
            auto *ok = cuadro.button(QMessageBox::Ok);
            boton = QRect(ok->mapTo(&cuadro, QPoint()), ok->size());
            texto = cuadro.text();
            tamano = cuadro.size();
            plegado = cuadro.findChild<QLabel *>(u"qt_msgbox_label"_s)->width() <= cuadro.width();
        });
        QVERIFY2(tamano.width() <= pantalla.width() && tamano.height() <= pantalla.height(),
                 qPrintable(u"%1x%2"_s.arg(tamano.width()).arg(tamano.height())));
        QVERIFY(pantalla.contains(boton));
        QVERIFY(plegado); // no line runs out of the box
        QCOMPARE(texto, larguisimo);
    }

    void listaDesplegadaAlMostrarse_seCierra()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        v.elemento<QComboBox>("ComboTipo")->showPopup();
        QVERIFY(QApplication::activePopupWidget());
        bool abierta = true;
        conCuadro(u"x"_s, v,
                  [&](const QMessageBox &) { abierta = QApplication::activePopupWidget(); });
        QVERIFY(!abierta);
    }

    void cuadro_conElMismoMargenATodosLosLados()
    {
        VentanaDePrueba v;
        QRect texto;
        QRect boton;
        QRect cuadro;
        Qt::WindowFlags como;
        conCuadro(u"Listo Historico"_s, v, [&](const QMessageBox &visto) {
            const auto *rotulo = visto.findChild<QLabel *>(u"qt_msgbox_label"_s);
            const auto *ok = visto.button(QMessageBox::Ok);
            texto = QRect(rotulo->mapTo(&visto, rotulo->contentsRect().topLeft()),
                          rotulo->contentsRect().size());
            boton = QRect(ok->mapTo(&visto, QPoint()), ok->size());
            cuadro = visto.rect();
            como = visto.windowFlags();
        });
        const int margen = texto.left();
        QVERIFY(margen >= 12);
        QCOMPARE(texto.top(), margen);
        QCOMPARE(cuadro.right() - boton.right(), margen);
        QCOMPARE(cuadro.bottom() - boton.bottom(), margen);
        QVERIFY(boton.width() >= 96);
        QVERIFY(!como.testFlag(Qt::WindowMinimizeButtonHint));
        QVERIFY(!como.testFlag(Qt::WindowMaximizeButtonHint));
    }

    void volverALaVentana_traeElUltimoCuadro()
    {
        VentanaDePrueba v;
        QStringList activos;
        const auto volver = [&] {
            v.form.activateWindow();
            QCoreApplication::processEvents();
            auto *activo = qobject_cast<QMessageBox *>(QApplication::activeWindow());
            activos.append(activo ? activo->text() : u"ninguno"_s);
        };
        QTimer::singleShot(0, &v.form, [&] {
            QMessageBox *primero = cuadroVisible();
            volver();
            QTimer::singleShot(0, &v.form, [&] {
                volver();
                for (QMessageBox *cuadro : v.cuadrosAbiertos())
                    if (cuadro != primero)
                        cuadro->accept();
            });
            cuadroMensaje(&v.form, u"segundo"_s);
            volver();
            primero->accept();
        });
        cuadroMensaje(&v.form, u"primero"_s);
        QCOMPARE(activos, QStringList({u"primero"_s, u"segundo"_s, u"primero"_s}));
    }

    void cuadro_noEsModalParaElSistemaDeVentanas()
    {
        VentanaDePrueba v;
        bool modal = true;
        conCuadro(u"x"_s, v,
                  [&](const QMessageBox &) { modal = QApplication::activeModalWidget(); });
        QVERIFY(!modal);
    }
};

QTEST_MAIN(tst_mensajes)
#include "tst_mensajes.moc"
