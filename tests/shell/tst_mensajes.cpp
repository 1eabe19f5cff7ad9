#include "shell/VentanaDePrueba.h"

#include "shell/CuadroMensaje.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>

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

private Q_SLOTS:
    void textoConMarcas_seMuestraTalCual()
    {
        VentanaDePrueba v;
        Qt::TextFormat formato = Qt::AutoText;
        QTimer::singleShot(0, this, [&] {
            formato = cuadroVisible()->textFormat();
            QCOMPARE(cuadroVisible()->text(), QStringLiteral("<b>1,ANA</b>®2,EVA"));
            cuadroVisible()->accept();
        });
        cuadroMensaje(&v.form, QStringLiteral("<b>1,ANA</b>®2,EVA"));
        QCOMPARE(formato, Qt::PlainText);
    }

    void mientrasEstaElCuadro_laVentanaNoRecibeEntradaPeroSeCierra()
    {
        VentanaDePrueba v;
        QTimer::singleShot(0, this, [&] {
            QVERIFY(cuadroVisible());
            QTest::keyClicks(v.elemento("txtUser"), QStringLiteral("abc"));
            QTest::mouseClick(v.elemento("Command1"), Qt::LeftButton);
            // As the window system closes it.
            QCloseEvent cierre;
            QApplication::sendEvent(&v.form, &cierre);
            QCOMPARE(v.cierres, 1);
            cuadroVisible()->accept();
        });
        cuadroMensaje(&v.form, QStringLiteral("Seleccione un Salon"));
        QCOMPARE(v.elemento<QLineEdit>("txtUser")->text(), QString());
        QVERIFY(v.e.demo.peticiones().isEmpty());
        QTest::keyClicks(v.elemento("txtUser"), QStringLiteral("abc"));
        QCOMPARE(v.elemento<QLineEdit>("txtUser")->text(), QStringLiteral("abc"));
    }

    void textoMasLargoQueLaPantalla_dejaElBotonAlAlcance()
    {
        VentanaDePrueba v;
        QRect pantalla;
        QSize tamano;
        bool plegado = false;
        QRect boton;
        QString texto;
        QTimer::singleShot(0, this, [&] {
            QMessageBox *cuadro = cuadroVisible();
            pantalla = QRect(QPoint(), cuadro->screen()->availableSize());
            auto *ok = cuadro->button(QMessageBox::Ok);
            boton = QRect(ok->mapTo(cuadro, QPoint()), ok->size());
            texto = cuadro->text();
            tamano = cuadro->size();
            plegado = cuadro->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"))->width()
                      <= cuadro->width();
            cuadro->accept();
        });
        const QString larguisimo =
            QStringLiteral("1001,BEDOYA PÉREZ JUAN SEBASTIÁN\u00AE").repeated(800);
        cuadroMensaje(&v.form, larguisimo);
        QVERIFY2(tamano.width() <= pantalla.width() && tamano.height() <= pantalla.height(),
                 qPrintable(QStringLiteral("%1x%2").arg(tamano.width()).arg(tamano.height())));
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
        QTimer::singleShot(0, this, [&] {
            QVERIFY(!QApplication::activePopupWidget());
            cuadroVisible()->accept();
        });
        cuadroMensaje(&v.form, QStringLiteral("x"));
    }

    void cuadro_noEsModalParaElSistemaDeVentanas()
    {
        VentanaDePrueba v;
        QTimer::singleShot(0, this, [&] {
            QVERIFY(!QApplication::activeModalWidget());
            cuadroVisible()->accept();
        });
        cuadroMensaje(&v.form, QStringLiteral("x"));
    }
};

QTEST_MAIN(tst_mensajes)
#include "tst_mensajes.moc"
