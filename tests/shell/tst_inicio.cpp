// SPDX-License-Identifier: MIT
// The window as it starts: each element's kind, text box or button, shown or hidden, and the order
// in which the window is loaded.
#include "escenario/Turnos.h"
#include "shell/VentanaDePrueba.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QProgressBar>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

enum Estado { Mostrado, Oculto };

struct Fila {
    const char *nombre;
    const char *clase;
    const char *panel;  // "" outside of the panels
    Estado estado;      // its own, whatever its panel's
    const char *marcas; // "chosen", "disabled"
};

constexpr Fila filas[] = {
    {"Image1", "Logotipo", "", Mostrado, ""},
    {"Option1_0", "QRadioButton", "", Mostrado, "chosen"},
    {"Option1_1", "QRadioButton", "", Oculto, ""},
    {"Option1_2", "QRadioButton", "", Oculto, ""},
    {"Option1_3", "QRadioButton", "", Oculto, ""},
    {"Frame1", "QFrame", "", Mostrado, ""},
    {"Label1", "QLabel", "Frame1", Mostrado, ""},
    {"txtUser", "QLineEdit", "Frame1", Mostrado, ""},
    {"Label2", "QLabel", "Frame1", Mostrado, ""},
    {"txtPwd", "QLineEdit", "Frame1", Mostrado, ""},
    {"Command1", "QPushButton", "Frame1", Mostrado, ""},
    {"Label5", "QLabel", "Frame1", Oculto, ""},
    {"Frame2", "QFrame", "", Oculto, ""},
    {"Label4", "QLabel", "Frame2", Mostrado, ""},
    {"Label7_0", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_0", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_1", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_4", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_5", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_6", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_7", "QLabel", "Frame2", Mostrado, ""},
    {"Shape1_0", "Vineta", "Frame2", Mostrado, ""},
    {"Shape1_1", "Vineta", "Frame2", Mostrado, ""},
    {"Shape1_2", "Vineta", "Frame2", Mostrado, ""},
    {"Shape1_3", "Vineta", "Frame2", Mostrado, ""},
    {"Shape1_4", "Vineta", "Frame2", Mostrado, ""},
    {"Shape1_5", "Vineta", "Frame2", Mostrado, ""},
    {"Line1", "QFrame", "Frame2", Mostrado, ""},
    {"Label6_10", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_9", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_8", "QLabel", "Frame2", Mostrado, ""},
    {"Label6_3", "QLabel", "Frame2", Mostrado, ""},
    {"estadoTS", "QLabel", "Frame2", Mostrado, ""},
    {"barra2", "QProgressBar", "Frame2", Oculto, ""},
    {"estadoHS", "QLabel", "Frame2", Mostrado, ""},
    {"barra1", "QProgressBar", "Frame2", Oculto, ""},
    {"Command3", "QPushButton", "Frame2", Mostrado, ""},
    {"Frame3", "QFrame", "", Oculto, ""},
    {"Label7_1", "QLabel", "Frame3", Mostrado, ""},
    {"List1", "QListWidget", "Frame3", Mostrado, ""},
    {"ComboTipo", "QComboBox", "Frame3", Mostrado, ""},
    {"Label7_2", "QLabel", "Frame3", Mostrado, ""},
    {"Combo1", "QComboBox", "Frame3", Mostrado, ""},
    {"Line2", "QFrame", "Frame3", Mostrado, ""},
    {"Option2_0", "QRadioButton", "Frame3", Mostrado, "chosen"},
    {"Option2_1", "QRadioButton", "Frame3", Mostrado, ""},
    {"Label6_2", "QLabel", "Frame3", Mostrado, ""},
    {"Label3", "QLabel", "Frame3", Mostrado, ""},
    {"Barra3", "QProgressBar", "Frame3", Oculto, ""},
    {"Command2", "QPushButton", "Frame3", Mostrado, ""},
    {"Frame4", "QFrame", "", Oculto, ""},
    {"Label10", "QLabel", "Frame4", Mostrado, ""},
    {"Dir1", "QListWidget", "Frame4", Oculto, ""},
    {"lstHistoricos", "QListWidget", "Frame4", Mostrado, ""},
    {"Command4", "QPushButton", "Frame4", Mostrado, "disabled"},
};

QString panelDe(const QWidget *elemento)
{
    for (const QWidget *padre = elemento->parentWidget(); padre; padre = padre->parentWidget()) {
        if (padre->objectName().startsWith(u"Frame"_s))
            return padre->objectName();
    }
    return {};
}

QString marcasDe(const QWidget *elemento)
{
    const auto *opcion = qobject_cast<const QAbstractButton *>(elemento);
    return opcion && opcion->isChecked() ? u"chosen"_s
                                         : (elemento->isEnabled() ? QString() : u"disabled"_s);
}

} // namespace

class tst_inicio : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void elemento_empiezaComoDebe_data()
    {
        QTest::addColumn<int>("indice");
        for (int indice = 0; indice < int(std::size(filas)); ++indice)
            QTest::newRow(filas[indice].nombre) << indice;
    }
    void elemento_empiezaComoDebe()
    {
        QFETCH(int, indice);
        const Fila &fila = filas[indice];
        const VentanaDePrueba v;
        const auto *elemento = v.elemento(fila.nombre);
        QVERIFY(elemento->inherits(fila.clase));
        QCOMPARE(panelDe(elemento), QString::fromLatin1(fila.panel));
        QCOMPARE(elemento->isHidden() ? Oculto : Mostrado, fila.estado);
        QCOMPARE(marcasDe(elemento), QString::fromLatin1(fila.marcas));
        if (const auto *barra = qobject_cast<const QProgressBar *>(elemento))
            QCOMPARE(barra->value(), 0);
    }

    void elementosDeLaTabla_sonTodosLosDeLaVentana()
    {
        QStringList esperados;
        for (const Fila &fila : filas)
            esperados.append(QString::fromLatin1(fila.nombre));
        const VentanaDePrueba v;
        QStringList hallados;
        static const QRegularExpression nombre(
            u"^(Image|Option|Frame|Label|txt|Command|Shape|Line|estado|barra|Barra|List|Combo|Dir"
            u"|lst)[0-9A-Za-z]*(_[0-9]+)?$"_s);
        const auto elementos = v.form.findChildren<QWidget *>();
        for (const QWidget *elemento : elementos) {
            if (nombre.match(elemento->objectName()).hasMatch())
                hallados.append(elemento->objectName());
        }
        esperados.sort();
        hallados.sort();
        QCOMPARE(hallados, esperados);
    }

    // The one yield of the load is the archive list's, before it is filled: all else is done then.
    void carga_llenaLaListaDeHistoricosAlFinal()
    {
        Escenario e;
        QVERIFY(QDir().mkpath(e.nativa(u"123-2010"_s)));
        Verbos verbos;
        QStringList visto;
        QStringList ocultos;
        QSize tamano;
        enElProximoTurno(*this, [&] {
            const auto ventanas = QApplication::topLevelWidgets();
            for (const QWidget *ventana : ventanas) {
                if (!ventana->inherits("Form1"))
                    continue;
                tamano = ventana->size();
                for (const char *panel : {"Frame1", "Frame2", "Frame3", "Frame4"}) {
                    if (ventana->findChild<QWidget *>(QString::fromLatin1(panel))->isHidden())
                        ocultos.append(QString::fromLatin1(panel));
                }
                visto = {e.sesion.idColegio,
                         QString::number(ventana->findChild<QListWidget *>(u"Dir1"_s)->count()),
                         QString::number(
                             ventana->findChild<QListWidget *>(u"lstHistoricos"_s)->count())};
            }
        });
        const Form1 form(e.entorno, verbos, [] {});
        QCOMPARE(visto, QStringList({u"ERROR"_s, u"1"_s, u"0"_s}));
        QCOMPARE(tamano, QSize(623, 484));
        QCOMPARE(ocultos, QStringList({u"Frame2"_s, u"Frame3"_s, u"Frame4"_s}));
        QCOMPARE(form.findChild<QListWidget *>(u"lstHistoricos"_s)->count(), 1);
        QVERIFY(!form.Materias);
    }
};

QTEST_MAIN(tst_inicio)
#include "tst_inicio.moc"
