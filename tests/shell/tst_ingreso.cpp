// SPDX-License-Identifier: MIT
#include "shell/VentanaDePrueba.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

// Counts how often a line was measured.
class MedidasContadas : public QStyledItemDelegate {
public:
    mutable int cuantas = 0;

    QSize sizeHint(const QStyleOptionViewItem &opcion, const QModelIndex &linea) const override
    {
        ++cuantas;
        return QStyledItemDelegate::sizeHint(opcion, linea);
    }
};

// How many had been when the element was first painted.
class PrimeraPintura : public QObject {
public:
    PrimeraPintura(QWidget &elemento, const MedidasContadas &contadas) : m_contadas(contadas)
    {
        elemento.installEventFilter(this);
    }

    int medidas = 0;

protected:
    bool eventFilter(QObject *objeto, QEvent *suceso) override
    {
        if (suceso->type() == QEvent::Paint && medidas == 0)
            medidas = m_contadas.cuantas;
        return QObject::eventFilter(objeto, suceso);
    }

private:
    const MedidasContadas &m_contadas;
};

} // namespace

class tst_ingreso : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void secretaria_abreLosTresModosYCargaLosSalones()
    {
        VentanaDePrueba v(TamanoEscuela{2010, 2, 1, 1});
        v.ingresar();
        QCOMPARE(v.mensajes, QStringList());
        QCOMPARE(v.elemento<QLabel>("Label5")->text(), u"Conectado OK:123"_s);
        QVERIFY(v.visible("Label5"));
        for (const char *modo : {"Option1_1", "Option1_2", "Option1_3"})
            QVERIFY2(v.visible(modo), modo);
        for (const char *nombre : {"Command1", "txtUser", "txtPwd"})
            QVERIFY2(!v.elemento(nombre)->isEnabled(), nombre);
        QVERIFY(v.visible("Frame1")); // the user picks another mode
        const auto *lista = v.elemento<QListWidget>("List1");
        QCOMPARE(lista->count(), 2);
        const SalonDemo &salon = v.e.demo.escuela().salones.first();
        QCOMPARE(lista->item(0)->text(), salon.id + u"   : "_s + salon.nombre);
        QCOMPARE(v.form.Salones.Count(), 2);
        QCOMPARE(v.e.sesion.idColegio, u"123"_s);
        QCOMPARE(v.e.sesion.anoActual, u"2010"_s);
        QCOMPARE(v.e.destinos().first(),
                 u"/querys/tessarin/login.php?azar=#&user=secretaria&pwd=demo2010"_s);
        QCOMPARE(v.e.destinos().last(),
                 u"/querys/tessarin/salones.php?azar=#&idcolegio=123&tipo=matrix"_s);
    }

    void panelYModos_cambianAntesDePedirLosSalones()
    {
        VentanaDePrueba v;
        QStringList visto;
        v.reteniendo(
            "salones.php", [&] { v.ingresar(); },
            [&] {
                for (const char *nombre : {"Command1", "txtUser", "txtPwd"})
                    visto.append(v.elemento(nombre)->isEnabled() ? u"libre"_s : u"fijo"_s);
                for (const char *nombre : {"Label5", "Option1_1", "Option1_2", "Option1_3"})
                    visto.append(v.visible(nombre) ? u"se ve"_s : u"no se ve"_s);
                visto.append(v.elemento<QLabel>("Label5")->text());
                visto.append(v.lineas("List1"));
            });
        QCOMPARE(visto, QStringList({u"fijo"_s, u"fijo"_s, u"fijo"_s, u"se ve"_s, u"se ve"_s,
                                     u"se ve"_s, u"se ve"_s, u"Conectado OK:123"_s}));
        QCOMPARE(v.lineas("List1").size(), 1);
    }

    void superadministrador_trabajaComoSecretaria()
    {
        VentanaDePrueba v;
        v.ingresar(u"superadmin"_s);
        QCOMPARE(v.mensajes, QStringList());
        QCOMPARE(v.e.sesion.rolUsuario, u"SECRETARIA"_s);
        QVERIFY(v.visible("Option1_1"));
    }

    void claveMala_avisaTrasCuatroPedidosYDejaTodoIgual()
    {
        VentanaDePrueba v;
        v.ingresar(u"secretaria"_s, u"otra"_s);
        QCOMPARE(v.mensajes,
                 QStringList({u"Usuario y/o Contraseña incorrectas, intentelo de nuevo"_s}));
        QCOMPARE(v.e.destinos(),
                 QStringList(4, u"/querys/tessarin/login.php?azar=#&user=secretaria&pwd=otra"_s));
        QVERIFY(v.elemento("Command1")->isEnabled());
        QVERIFY(!v.visible("Option1_1"));
        QCOMPARE(v.e.sesion.idColegio, u"ERROR"_s);
        v.elemento<QLineEdit>("txtPwd")->clear();
        v.elemento<QLineEdit>("txtUser")->clear();
        v.ingresar();
        QVERIFY(v.visible("Option1_1"));
    }

    void docente_noTieneElNivelRequerido()
    {
        VentanaDePrueba v;
        v.ingresar(u"docente"_s);
        QCOMPARE(v.mensajes, QStringList({u"Nivel de acceso inadecuado, se requiere Usuario y "
                                          "Pasword de Secretaria"_s}));
        QVERIFY(!v.visible("Option1_1"));
        QCOMPARE(v.e.sesion.idColegio, u"ERROR"_s);
    }

    void errorEnMinusculas_pasaAlExamenDelRol()
    {
        VentanaDePrueba v;
        v.e.responder("login.php", "error");
        v.ingresar();
        QCOMPARE(v.mensajes, QStringList({u"Nivel de acceso inadecuado, se requiere Usuario y "
                                          "Pasword de Secretaria"_s}));
    }

    void servicioMudo_avisaComoRolInadecuado()
    {
        VentanaDePrueba v;
        Falla falla;
        falla.clase = Falla::CierraAntes;
        v.e.demo.fallar("login.php", falla);
        v.ingresar();
        QCOMPARE(v.mensajes.size(), 1);
        QVERIFY(v.mensajes.first().startsWith(u"Nivel de acceso"_s));
    }

    void signosEnLaCuenta_vanComoEstan()
    {
        VentanaDePrueba v;
        v.elemento<QLineEdit>("txtUser")->setText(u"a&b=c"_s);
        v.elemento<QLineEdit>("txtPwd")->setText(u"x ñ=1"_s);
        v.conCuadros([&] { v.clic("Command1"); });
        QCOMPARE(v.e.destinos().first(),
                 u"/querys/tessarin/login.php?azar=#&user=a&b=c&pwd=x%20%F1=1"_s);
    }

    void salonesSinRespuesta_dejanLaListaVaciaSinMensaje()
    {
        VentanaDePrueba v;
        Falla falla;
        falla.clase = Falla::CierraAntes;
        v.e.demo.fallar("salones.php", falla);
        v.ingresar();
        QCOMPARE(v.mensajes, QStringList());
        QCOMPARE(v.elemento<QListWidget>("List1")->count(), 0);
        QVERIFY(v.visible("Option1_1"));
    }

    void enterEnCualquierCasilla_conecta_data()
    {
        QTest::addColumn<QByteArray>("casilla");
        QTest::newRow("user") << QByteArray("txtUser");
        QTest::newRow("password") << QByteArray("txtPwd");
    }
    void enterEnCualquierCasilla_conecta()
    {
        QFETCH(QByteArray, casilla);
        VentanaDePrueba v;
        v.escribirCuenta(u"secretaria"_s, u"demo2010"_s);
        QTest::keyClick(v.elemento(casilla.constData()), Qt::Key_Return);
        QVERIFY(v.visible("Option1_1"));
    }

    void clave_seEscribeOculta()
    {
        const VentanaDePrueba v;
        QCOMPARE(v.elemento<QLineEdit>("txtPwd")->echoMode(), QLineEdit::Password);
        QCOMPARE(v.elemento<QLineEdit>("txtUser")->echoMode(), QLineEdit::Normal);
    }

    // A list that no school has does not keep its panel from being seen: what is beyond the first
    // thousand lines is measured while the window goes on.
    void listaLarga_seVeAntesDeMedirseEntera()
    {
        constexpr int cuantas = 5000;
        VentanaDePrueba v;
        auto *lista = v.elemento<QListWidget>("List1");
        MedidasContadas medidas;
        lista->setItemDelegate(&medidas);
        for (int fila = 0; fila < cuantas; ++fila)
            lista->addItem(QString::number(fila));
        PrimeraPintura pintura(*lista->viewport(), medidas);
        v.form.findChild<QFrame *>(u"Frame1"_s)->setVisible(false);
        v.form.findChild<QFrame *>(u"Frame3"_s)->setVisible(true);
        QTRY_VERIFY(pintura.medidas > 0);
        QVERIFY2(pintura.medidas < cuantas / 2, qPrintable(QString::number(pintura.medidas)));
        QTRY_VERIFY(!lista->visualItemRect(lista->item(cuantas - 1)).isEmpty());
        lista->setFocus();
        QTest::keyClick(lista, Qt::Key_End);
        QCOMPARE(lista->currentRow(), cuantas - 1);
        QTRY_VERIFY(
            lista->viewport()->rect().intersects(lista->visualItemRect(lista->item(cuantas - 1))));
        lista->setItemDelegate(nullptr);
    }
};

QTEST_MAIN(tst_ingreso)
#include "tst_ingreso.moc"
