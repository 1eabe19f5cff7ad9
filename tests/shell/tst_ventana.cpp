// SPDX-License-Identifier: MIT
// The window as a window: what it takes to be usable by everybody.
#include "shell/VentanaDePrueba.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class tst_ventana : public QObject {
    Q_OBJECT
private:
    static const QStringList &modos()
    {
        static const QStringList nombres = {u"Option1_0"_s, u"Option1_1"_s, u"Option1_2"_s,
                                            u"Option1_3"_s};
        return nombres;
    }

    // The text of a label or button that has less room than it needs; empty when all fit.
    static QString recortado(const QWidget &ventana)
    {
        const auto elementos = ventana.findChildren<QWidget *>();
        for (const QWidget *elemento : elementos) {
            if (!elemento->isVisible())
                continue;
            QSize necesario;
            if (const auto *rotulo = qobject_cast<const QLabel *>(elemento)) {
                necesario = rotulo->sizeHint();
                if (rotulo->wordWrap()) {
                    necesario = QSize(0, rotulo->heightForWidth(rotulo->width()));
                    const QStringList palabras = rotulo->text().split(u' ');
                    for (const QString &palabra : palabras)
                        necesario.setWidth(std::max(
                            necesario.width(), rotulo->fontMetrics().horizontalAdvance(palabra)));
                }
            } else if (const auto *boton = qobject_cast<const QAbstractButton *>(elemento)) {
                necesario = boton->minimumSizeHint();
            } else {
                continue;
            }
            const bool cabe =
                elemento->width() >= necesario.width() && elemento->height() >= necesario.height();
            const bool dentro = elemento->parentWidget()->rect().contains(elemento->geometry());
            if (!cabe || !dentro)
                return elemento->objectName();
        }
        return {};
    }

private Q_SLOTS:
    void focoInicial_estaEnElUsuario()
    {
        VentanaDePrueba v;
        v.form.activateWindow();
        QTRY_COMPARE(QApplication::focusWidget(), v.elemento("txtUser"));
    }

    void tabulador_recorreElIngresoEnSuOrden()
    {
        VentanaDePrueba v;
        v.form.activateWindow();
        QTRY_COMPARE(QApplication::focusWidget(), v.elemento("txtUser"));
        for (const char *nombre : {"txtPwd", "Command1"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), v.elemento(nombre));
        }
    }

    void tabulador_recorreLaImpresionEnSuOrden()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        v.elemento("List1")->setFocus();
        for (const char *nombre : {"ComboTipo", "Combo1", "Option2_0", "Command2"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), v.elemento(nombre));
        }
    }

    void enterEnUnBoton_loPresiona()
    {
        const VentanaDePrueba v;
        for (const char *nombre : {"Command1", "Command2", "Command3", "Command4"}) {
            auto *boton = v.elemento<QPushButton>(nombre);
            // What it does is not wanted here, only that it is pressed.
            QObject::disconnect(boton, &QPushButton::clicked, nullptr, nullptr);
            QSignalSpy presionado(boton, &QPushButton::clicked);
            boton->setEnabled(true);
            QTest::keyClick(boton, Qt::Key_Return);
            QTest::keyClick(boton, Qt::Key_Enter);
            QCOMPARE(presionado.size(), 2);
        }
    }

    void cadaControl_tieneNombreAccesible()
    {
        const VentanaDePrueba v;
        const auto elementos = v.form.findChildren<QWidget *>();
        int revisados = 0;
        for (const QWidget *elemento : elementos) {
            const bool control = qobject_cast<const QAbstractButton *>(elemento)
                                 || qobject_cast<const QLineEdit *>(elemento)
                                 || qobject_cast<const QComboBox *>(elemento)
                                 || qobject_cast<const QListWidget *>(elemento)
                                 || qobject_cast<const QProgressBar *>(elemento);
            if (!control || elemento->objectName().startsWith(u"qt_"_s))
                continue;
            QVERIFY2(!elemento->accessibleName().isEmpty(), qPrintable(elemento->objectName()));
            ++revisados;
        }
        QVERIFY(revisados >= 19);
    }

    void ningunTexto_seRecorta_data()
    {
        QTest::addColumn<QSize>("tamano");
        QTest::addColumn<double>("letra");
        QTest::newRow("as it opens") << QSize(623, 484) << 1.0;
        QTest::newRow("larger") << QSize(1200, 900) << 1.0;
        QTest::newRow("as small as it gets") << QSize(1, 1) << 1.0;
        QTest::newRow("large letters") << QSize(623, 484) << 1.5;
        QTest::newRow("twice as large, as small as it gets") << QSize(1, 1) << 2.0;
    }
    void ningunTexto_seRecorta()
    {
        QFETCH(QSize, tamano);
        QFETCH(double, letra);
        const QFont deSiempre = QApplication::font();
        QFont otra = deSiempre;
        otra.setPointSizeF(deSiempre.pointSizeF() * letra);
        QApplication::setFont(otra);
        const auto alFinal = qScopeGuard([&] { QApplication::setFont(deSiempre); });
        VentanaDePrueba v;
        v.ingresar();
        v.form.resize(tamano);
        for (const QString &modo : modos()) {
            v.elegir(modo.toLatin1().constData());
            QVERIFY2(QTest::qWaitFor([&] { return recortado(v.form).isEmpty(); }),
                     qPrintable(modo + u' ' + recortado(v.form)));
            if (const QString carpeta = qEnvironmentVariable("PARVANEL_RETRATOS");
                !carpeta.isEmpty())
                QVERIFY(v.form.grab().save(u"%1/%2-%3.png"_s.arg(
                    carpeta, QString::fromLatin1(QTest::currentDataTag()), modo)));
        }
    }

    void nombreLarguisimo_noEnsanchaLaVentana()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        QApplication::processEvents();
        const int ancho = v.form.width();
        v.e.progreso.estadoHS->ponerTexto(QString(400, u'W'));
        v.form.layout()->activate();
        QApplication::processEvents();
        QCOMPARE(v.form.width(), ancho);
        QVERIFY(v.form.minimumSizeHint().width() <= ancho);
    }

    void tecnologiaDeApoyo_cambiaDeModo()
    {
        VentanaDePrueba v;
        v.ingresar();
        QAccessibleInterface *boton =
            QAccessible::queryAccessibleInterface(v.elemento("Option1_3"));
        QVERIFY(boton && boton->actionInterface());
        boton->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(v.visible("Frame4"));
        QVERIFY(!v.visible("Frame1"));
    }

    void logotipo_seDibuja()
    {
        const VentanaDePrueba v;
        const QImage imagen = v.elemento("Image1")->grab().toImage();
        QSet<QRgb> colores;
        for (int x = 0; x < imagen.width(); x += 2) {
            for (int y = 0; y < imagen.height(); y += 2)
                colores.insert(imagen.pixel(x, y));
        }
        QVERIFY(colores.size() > 3);
    }
};

QTEST_MAIN(tst_ventana)
#include "tst_ventana.moc"
