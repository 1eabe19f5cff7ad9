// SPDX-License-Identifier: MIT
// Presses that come again while their handler still runs: a held key, a double click, assistive
// technology, which also reaches the window behind a message box. And, with them, how deep the
// window's waits can nest at the most.
#include "shell/VentanaDePrueba.h"

#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int presiones = 60;

// Repeats something at turns of the event loop, those of nested waits included, while it lives.
class Repeticion {
public:
    explicit Repeticion(std::function<void()> hacer) : m_hacer(std::move(hacer)) { otra(); }

private:
    void otra()
    {
        QTimer::singleShot(1, &m_vida, [this] {
            otra(); // first: what is done may wait
            m_hacer();
        });
    }

    QObject m_vida;
    std::function<void()> m_hacer;
};

void retener(VentanaDePrueba &v, const QByteArrayList &fragmentos)
{
    Falla falla;
    falla.clase = Falla::Retenida;
    for (const QByteArray &fragmento : fragmentos)
        v.e.demo.fallar(fragmento, falla);
}

qsizetype cuantas(const VentanaDePrueba &v, const QByteArrayList &fragmentos)
{
    const auto peticiones = v.e.demo.peticiones();
    return std::count_if(peticiones.begin(), peticiones.end(), [&](const Peticion &peticion) {
        return std::any_of(fragmentos.begin(), fragmentos.end(), [&](const QByteArray &fragmento) {
            return peticion.destino.contains(fragmento);
        });
    });
}

// As assistive technology does: from any panel, and whatever stands before the window.
void pulsar(const VentanaDePrueba &v, const QByteArray &nombre)
{
    static const QHash<QByteArray, const char *> modos = {
        {"Command1", "Option1_0"}, {"Command2", "Option1_2"}, {"Command3", "Option1_1"}};
    v.elemento<QRadioButton>(modos.value(nombre))->click();
    auto *boton = v.elemento<QPushButton>(nombre.constData());
    if (boton->isVisible() && boton->isEnabled())
        boton->click();
}

void repetirReturn(QWidget *elemento)
{
    QKeyEvent otra(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QApplication::sendEvent(elemento, &otra);
}

} // namespace

class tst_repeticion : public QObject {
    Q_OBJECT
private:
    static constexpr auto login = "login.php";
    static constexpr auto salones = "salones.php";   // the last request of a login
    static constexpr auto guiones = "/jscript/";     // the first of an archive run
    static constexpr auto alumnos = "matrix&salon="; // the first of a print job

    static void prepararImpresion(VentanaDePrueba &v)
    {
        v.elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
        v.elegirSalon();
        v.elegir("Option2_1");
    }

private Q_SLOTS:
    void enterSostenido_esUnSoloIngreso()
    {
        VentanaDePrueba v;
        retener(v, {login});
        v.escribirCuenta(u"secretaria"_s, u"demo2010"_s);
        auto *casilla = v.elemento("txtPwd");
        int pulsos = 0;
        const Repeticion tecla([&] {
            if (++pulsos == presiones)
                v.e.demo.quitarFallas();
            if (pulsos < presiones)
                repetirReturn(casilla);
        });
        QTest::keyClick(casilla, Qt::Key_Return);
        QVERIFY(pulsos >= presiones);
        QCOMPARE(cuantas(v, {login}), 1);
        QCOMPARE(v.elemento<QLabel>("Label5")->text(), u"Conectado OK:123"_s);
        QCOMPARE(cuantas(v, {salones}), 1);
    }

    void dobleClicEnImprimir_esUnSoloTrabajo()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        prepararImpresion(v);
        v.e.demo.olvidarPeticiones();
        retener(v, {alumnos});
        int clics = 0;
        const Repeticion mano([&] {
            if (++clics == presiones)
                v.e.demo.quitarFallas();
            if (clics < presiones)
                v.clic("Command2");
        });
        v.clic("Command2");
        QVERIFY(clics >= presiones);
        QCOMPARE(cuantas(v, {alumnos}), 1);
        QCOMPARE(cuantas(v, {"/pazYsalvo/"}), 2); // one a student
    }

    // The box of a refused login takes the focus, and with it the repetitions of the key.
    void enterSostenidoConClaveMala_esUnSoloIngresoYDejaElMensaje()
    {
        VentanaDePrueba v;
        v.escribirCuenta(u"secretaria"_s, u"otra"_s);
        int pulsosAnteElCuadro = 0;
        const Repeticion tecla([&] {
            const auto abiertos = v.cuadrosAbiertos();
            if (!abiertos.isEmpty() && ++pulsosAnteElCuadro == presiones)
                QTest::keyClick(abiertos.first()->button(QMessageBox::Ok), Qt::Key_Return);
            QWidget *conFoco = abiertos.isEmpty() ? v.elemento("txtPwd")
                                                  : abiertos.first()->button(QMessageBox::Ok);
            repetirReturn(conFoco);
        });
        QTest::keyClick(v.elemento("txtPwd"), Qt::Key_Return);
        QCOMPARE(pulsosAnteElCuadro, presiones);
        for (int i = 0; i < presiones; ++i)
            repetirReturn(v.elemento("txtPwd"));
        QCOMPARE(cuantas(v, {login}), 4); // the tries of one
    }

    void enterSostenidoEnImprimir_esUnSoloTrabajo()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        prepararImpresion(v);
        v.e.demo.olvidarPeticiones();
        QTest::keyClick(v.elemento("Command2"), Qt::Key_Return);
        QCOMPARE(cuantas(v, {"/pazYsalvo/"}), 2);
        for (int i = 0; i < presiones; ++i)
            repetirReturn(v.elemento("Command2"));
        QCOMPARE(cuantas(v, {"/pazYsalvo/"}), 2);
    }

    void trabajoTerminado_puedeEmpezarDeNuevo()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        prepararImpresion(v);
        v.clic("Command2");
        v.clic("Command2");
        QCOMPARE(cuantas(v, {"/pazYsalvo/"}), 4);
    }

    // Every wait begins in one of three handlers, each of which runs once at a time. A print job
    // asks for something only once the classrooms are there, with which the login ends: so no
    // more than two requests are ever out at once, and a box above them.
    void nidoMasHondo_esDeTresManejadores_data()
    {
        QTest::addColumn<bool>("conIngreso");
        QTest::addColumn<QByteArrayList>("botones");
        QTest::addColumn<qsizetype>("peticiones");
        QTest::addColumn<qsizetype>("cuadros");
        QTest::newRow("run, print job")
            << true << QByteArrayList{"Command3", "Command2"} << qsizetype(2) << qsizetype(0);
        QTest::newRow("print job, run")
            << true << QByteArrayList{"Command2", "Command3"} << qsizetype(2) << qsizetype(0);
        QTest::newRow("login, run, box of a print job without classrooms")
            << false << QByteArrayList{"Command1", "Command3", "Command2"} << qsizetype(2)
            << qsizetype(1);
    }
    void nidoMasHondo_esDeTresManejadores()
    {
        QFETCH(bool, conIngreso);
        QFETCH(QByteArrayList, botones);
        QFETCH(qsizetype, peticiones);
        QFETCH(qsizetype, cuadros);
        VentanaDePrueba v;
        if (conIngreso) {
            v.ingresar();
            v.elegir("Option1_2");
            prepararImpresion(v);
            v.e.demo.olvidarPeticiones();
        } else {
            v.elemento<QComboBox>("ComboTipo")->setCurrentIndex(3);
            v.escribirCuenta(u"secretaria"_s, u"demo2010"_s);
        }
        const QByteArrayList retenidos = {salones, guiones, alumnos};
        retener(v, retenidos);

        qsizetype dados = 0; // of `botones`
        int vueltas = 0;
        QStringList mensajes;
        const auto fondo = [&] {
            return cuantas(v, retenidos) == peticiones && v.cuadrosAbiertos().size() == cuadros;
        };
        bool fondoSiempre = true;
        const QDeadlineTimer plazo(30'000); // to get down there
        const auto bajar = [&] {
            if (dados == botones.size() || cuantas(v, retenidos) != dados)
                return;
            pulsar(v, botones[dados++]);
        };
        const Repeticion mano([&] {
            const bool llego = vueltas > 0 || (dados == botones.size() && fondo());
            if (!llego && !plazo.hasExpired())
                return bajar();
            fondoSiempre = fondoSiempre && llego;
            if (llego && ++vueltas < presiones) {
                for (const char *boton : {"Command1", "Command2", "Command3"})
                    pulsar(v, boton);
                fondoSiempre = fondoSiempre && fondo();
                return;
            }
            v.e.demo.quitarFallas();
            const auto abiertos = v.cuadrosAbiertos();
            for (QMessageBox *cuadro : abiertos) {
                mensajes.append(cuadro->text());
                cuadro->button(QMessageBox::Ok)->click();
            }
        });
        bajar();
        QVERIFY(vueltas >= presiones);
        QVERIFY(fondoSiempre);
        QCOMPARE(v.elemento<QLabel>("Label5")->text(), u"Conectado OK:123"_s);
        QCOMPARE(mensajes.count(u"Listo Historico"_s), 1);
        QCOMPARE(mensajes.count(u"Seleccione un Salon"_s), cuadros);
        QCOMPARE(cuantas(v, {"/pazYsalvo/"}), cuadros == 0 ? 2 : 0);
        QCOMPARE(cuantas(v, {"/jscript/"}), 2);
    }
};

QTEST_MAIN(tst_repeticion)
#include "tst_repeticion.moc"
