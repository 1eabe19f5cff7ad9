#include "shell/VentanaDePrueba.h"

#include "shell/CuadroMensaje.h"

#include <QLineEdit>

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
