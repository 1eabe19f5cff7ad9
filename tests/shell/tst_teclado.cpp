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
};

QTEST_MAIN(tst_teclado)
#include "tst_teclado.moc"
