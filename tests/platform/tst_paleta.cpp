// SPDX-License-Identifier: MIT
#include "platform/BusPrivado.h"
#include "platform/paleta.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#include <QProcess>
#include <QSocketNotifier>
#include <QTest>

#include <cstdio>
#include <cstring>
#include <memory>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const auto apariencia = u"org.freedesktop.appearance"_s;
const auto esquema = u"color-scheme"_s;
const auto servicio = u"org.freedesktop.portal.Desktop"_s;
const auto objeto = u"/org/freedesktop/portal/desktop"_s;
constexpr uint noSabe = 99; // the portal has no such setting

bool hayBus = false;

QDBusMessage llamada(const QString &metodo)
{
    return QDBusMessage::createMethodCall(servicio, objeto, u"org.freedesktop.portal.Settings"_s,
                                          metodo);
}

} // namespace

// The desktop's settings as the portal gives them. It runs in a process of its own, as the real one
// does: what one side makes known to the bus library must not serve the other.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public Q_SLOTS:
    QDBusVariant Read(const QString &espacio, const QString &clave, const QDBusMessage &mensaje)
    {
        if (m_valor == noSabe || espacio != apariencia || clave != esquema) {
            mensaje.setDelayedReply(true);
            QDBusConnection(u"portal"_s)
                .send(mensaje.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s,
                                               u"no such setting"_s));
            return {};
        }
        const QVariant dentro = QVariant::fromValue(m_valor);
        return QDBusVariant(m_envuelto ? QVariant::fromValue(QDBusVariant(dentro)) : dentro);
    }

    // What the test asks of it. Older portals wrap the value twice.
    void Poner(uint valor, bool envuelto)
    {
        m_valor = valor;
        m_envuelto = envuelto;
    }
    void Cambiar(const QString &espacio, const QString &clave, uint valor)
    {
        Q_EMIT
        SettingChanged(espacio, clave, QDBusVariant(QVariant::fromValue(valor)));
    }

Q_SIGNALS:
    void SettingChanged(const QString &espacio, const QString &clave, const QDBusVariant &valor);

private:
    uint m_valor = 0;
    bool m_envuelto = true;
};

// Runs until its input ends.
int correrPortal(int argc, char *argv[])
{
    QCoreApplication aplicacion(argc, argv);
    Portal portal;
    // A connection of its own: the shared one hands over nothing before the loop turns, and what
    // has come by then out of order.
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
    bus.registerObject(objeto, &portal,
                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    if (!bus.registerService(servicio))
        return 1;
    QSocketNotifier fin(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&fin, &QSocketNotifier::activated, &aplicacion, &QCoreApplication::quit);
    std::puts("listo");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

class tst_paleta : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void primerUso_oyeCambios();
    void alEmpezar_data();
    void alEmpezar();
    void cambio_vaYVuelve();
    void otroAjuste_noCuenta();
    void paletaYaOscura_seDeja();
    void sinPortal_seDeja();
    void destruida_noSigue();

private:
    static int claridad() { return QGuiApplication::palette().color(QPalette::Window).lightness(); }
    static int claridadTexto()
    {
        return QGuiApplication::palette().color(QPalette::Text).lightness();
    }
    // Returns when all that the portal has said so far has been heard: what one sender says
    // arrives in order, and this asks it a question more.
    void entregar();
    void poner(uint valor, bool envuelto = false);
    void cambiar(const QString &espacio, const QString &clave, uint valor);
    void empezarPortal();

    std::unique_ptr<QProcess> m_portal;
    QPalette m_clara;
};

void tst_paleta::initTestCase()
{
    if (!hayBus)
        QSKIP("no dbus-daemon to talk to");
    m_clara = QGuiApplication::palette();
    QVERIFY(claridad() > 128);
}

void tst_paleta::init()
{
    empezarPortal();
}

void tst_paleta::cleanup()
{
    m_portal->closeWriteChannel();
    QVERIFY(m_portal->waitForFinished());
    m_portal.reset();
    QGuiApplication::setPalette(QPalette());
}

void tst_paleta::empezarPortal()
{
    m_portal = std::make_unique<QProcess>();
    m_portal->start(QCoreApplication::applicationFilePath(), {u"--portal"_s});
    QVERIFY(m_portal->waitForReadyRead());
    QCOMPARE(m_portal->readAllStandardOutput(), QByteArray("listo\n"));
}

void tst_paleta::poner(uint valor, bool envuelto)
{
    QDBusMessage orden = llamada(u"Poner"_s);
    QDBusConnection::sessionBus().send(orden << valor << envuelto);
}

void tst_paleta::cambiar(const QString &espacio, const QString &clave, uint valor)
{
    QDBusMessage orden = llamada(u"Cambiar"_s);
    QDBusConnection::sessionBus().send(orden << espacio << clave << valor);
}

void tst_paleta::entregar()
{
    // Twice: an answer that came quickly takes one more turn of the loop to be told.
    for (int vez = 0; vez < 2; ++vez) {
        QDBusMessage pregunta = llamada(u"Read"_s);
        const QDBusPendingCallWatcher respuesta(
            QDBusConnection::sessionBus().asyncCall(pregunta << apariencia << esquema));
        bool oida = false;
        connect(&respuesta, &QDBusPendingCallWatcher::finished, this, [&] { oida = true; });
        QTRY_VERIFY(oida);
    }
}

// Before this process has had anything else to do with the bus.
void tst_paleta::primerUso_oyeCambios()
{
    const PaletaEscritorio paleta;
    entregar();
    cambiar(apariencia, esquema, 1);
    entregar();
    QVERIFY(claridad() < 128);
}

void tst_paleta::alEmpezar_data()
{
    QTest::addColumn<uint>("valor");
    QTest::addColumn<bool>("envuelto");
    QTest::addColumn<bool>("oscura");
    QTest::newRow("sin preferencia") << 0U << false << false;
    QTest::newRow("oscura") << 1U << false << true;
    QTest::newRow("oscura, envuelta") << 1U << true << true;
    QTest::newRow("clara") << 2U << false << false;
    QTest::newRow("clara, envuelta") << 2U << true << false;
    QTest::newRow("desconocida") << 7U << false << false;
    QTest::newRow("el portal no sabe") << noSabe << false << false;
}

void tst_paleta::alEmpezar()
{
    QFETCH(uint, valor);
    QFETCH(bool, envuelto);
    QFETCH(bool, oscura);
    poner(valor, envuelto);
    const PaletaEscritorio paleta;
    entregar();
    QCOMPARE(claridad() < 128, oscura);
    QCOMPARE(claridadTexto() > 128, oscura);
    if (!oscura)
        QCOMPARE(QGuiApplication::palette(), m_clara);
}

void tst_paleta::cambio_vaYVuelve()
{
    const PaletaEscritorio paleta;
    entregar();
    for (const uint vuelta : {0U, 2U, 9U}) {
        cambiar(apariencia, esquema, 1);
        entregar();
        QVERIFY(claridad() < 128);
        QVERIFY(claridadTexto() > 128);
        cambiar(apariencia, esquema, vuelta);
        entregar();
        QCOMPARE(QGuiApplication::palette(), m_clara);
    }
}

void tst_paleta::otroAjuste_noCuenta()
{
    poner(1);
    const PaletaEscritorio paleta;
    entregar();
    QVERIFY(claridad() < 128);
    cambiar(apariencia, u"accent-color"_s, 0);
    cambiar(u"org.gnome.desktop.interface"_s, esquema, 0);
    entregar();
    QVERIFY(claridad() < 128);
}

void tst_paleta::paletaYaOscura_seDeja()
{
    const QPalette ajena(Qt::white, QColor(0x10, 0x20, 0x30));
    QGuiApplication::setPalette(ajena);
    const QPalette puesta = QGuiApplication::palette();
    poner(2);
    const PaletaEscritorio paleta;
    cambiar(apariencia, esquema, 1);
    cambiar(apariencia, esquema, 2);
    entregar();
    QCOMPARE(QGuiApplication::palette(), puesta);
}

void tst_paleta::sinPortal_seDeja()
{
    cleanup();
    const PaletaEscritorio paleta;
    empezarPortal(); // one that starts later still tells of changes
    entregar();
    QCOMPARE(QGuiApplication::palette(), m_clara);
    cambiar(apariencia, esquema, 1);
    entregar();
    QVERIFY(claridad() < 128);
}

void tst_paleta::destruida_noSigue()
{
    auto paleta = std::make_unique<PaletaEscritorio>();
    entregar();
    paleta.reset();
    cambiar(apariencia, esquema, 1);
    entregar();
    QCOMPARE(QGuiApplication::palette(), m_clara);
}

int main(int argc, char *argv[])
{
    if (argc > 1 && std::strcmp(argv[1], "--portal") == 0)
        return correrPortal(argc, argv);
    const BusPrivado bus; // before anything could ask for another
    hayBus = bus.corre();
    QGuiApplication aplicacion(argc, argv);
    tst_paleta pruebas;
    return QTest::qExec(&pruebas, argc, argv);
}

#include "tst_paleta.moc"
