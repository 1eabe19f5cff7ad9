// SPDX-License-Identifier: MIT
#include "platform/BusPrivado.h"
#include "platform/Vigilia.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <cstring>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const auto motivo = u"Se está descargando un histórico"_s;
const auto delPortal = u"org.freedesktop.portal.Desktop"_s;
const auto delGestor = u"org.gnome.SessionManager"_s;
constexpr uint cierreYSuspension = 1 | 4;

// One service of a desktop, at every path: it takes the calls that it knows as the real ones do,
// and notes what is held.
class Servicio : public QDBusVirtualObject {
public:
    // How it answers what asks it to hold something.
    enum class Modo { Otorga, Niega, NiegaAntes, NiegaDespues, SeAgota, Calla };

    Servicio(const QString &nombre, const QString &interfaz)
        : m_interfaz(interfaz),
          m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"bus de "_s + nombre)),
          m_conexion(u"bus de "_s + nombre)
    {
        corre = m_bus.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath)
                && m_bus.registerService(nombre);
    }
    ~Servicio() override { QDBusConnection::disconnectFromBus(m_conexion); }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &mensaje, const QDBusConnection &) override
    {
        if (mensaje.interface() == m_interfaz && mensaje.member() == u"Inhibit"_s) {
            pedidos.append(mensaje);
            if (modo != Modo::Calla)
                contestar(mensaje);
            return true;
        }
        // Closed by its path, or given back by its number.
        const bool cierra = mensaje.interface() == u"org.freedesktop.portal.Request"_s
                            && mensaje.member() == u"Close"_s;
        const bool devuelve =
            mensaje.interface() == m_interfaz && mensaje.member() == u"Uninhibit"_s;
        if (!cierra && !devuelve)
            return false;
        const QString cual =
            cierra ? mensaje.path() : QString::number(mensaje.arguments().value(0).toUInt());
        if (!sostenidos.removeOne(cual))
            deMas.append(cual);
        return true;
    }

    void contestar(const QDBusMessage &mensaje)
    {
        if (modo == Modo::Niega) {
            m_bus.send(
                mensaje.createErrorReply(u"org.freedesktop.DBus.Error.AccessDenied"_s, u"no"_s));
            return;
        }
        if (m_interfaz == delGestor) {
            sostenidos.append(QString::number(++m_galleta));
            m_bus.send(mensaje.createReply(m_galleta));
            return;
        }
        const QString lugar = lugarDe(mensaje);
        sostenidos.append(lugar);
        if (modo == Modo::SeAgota) { // as the bus says of one that takes too long
            m_bus.send(
                mensaje.createErrorReply(u"org.freedesktop.DBus.Error.NoReply"_s, u"late"_s));
            return;
        }
        const bool niega = modo == Modo::NiegaDespues || modo == Modo::NiegaAntes;
        const QDBusMessage respuesta =
            mensaje.createReply(QVariant::fromValue(QDBusObjectPath(lugar)));
        QDBusMessage dicho = QDBusMessage::createTargetedSignal(
            mensaje.service(), lugar, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        if (niega)
            sostenidos.removeOne(lugar);
        dicho << (niega ? 2U : 0U) << QVariantMap();
        m_bus.send(modo == Modo::NiegaAntes ? dicho : respuesta);
        m_bus.send(modo == Modo::NiegaAntes ? respuesta : dicho);
    }

    QVariant argumento(int cual) const { return pedidos.value(0).arguments().value(cual); }

    Modo modo = Modo::Otorga;
    bool corre = false;
    QList<QDBusMessage> pedidos;
    QStringList sostenidos; // and not given back yet
    QStringList deMas;      // given back although not held

private:
    static QString lugarDe(const QDBusMessage &mensaje)
    {
        const auto opciones = qdbus_cast<QVariantMap>(mensaje.arguments().value(2));
        return u"/org/freedesktop/portal/desktop/request/"_s
               + mensaje.service().mid(1).replace(u'.', u'_') + u'/'
               + opciones.value(u"handle_token"_s).toString();
    }

    QString m_interfaz;
    QDBusConnection m_bus;
    QString m_conexion;
    uint m_galleta = 40;
};

bool hayBus = false;

} // namespace

class tst_Vigilia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!hayBus)
            QSKIP("no dbus-daemon to talk to");
        QGuiApplication::setDesktopFileName(u"example.parvanel.prueba"_s);
    }
    void init() { QVERIFY(QDBusConnection::sessionBus().isConnected()); }
    void cleanup()
    {
        m_portal.reset();
        m_gestor.reset();
    }

    void portal_loSostieneHastaElFin();
    void sinPortal_loSostieneElGestor();
    void portalQueNoPuede_loSostieneElGestor_data();
    void portalQueNoPuede_loSostieneElGestor();
    void conPortal_alGestorNoSePide();
    void unaDentroDeOtra_cadaUnaPorSuCuenta();
    void respuestaTrasElFin_seDevuelveAlMomento_data();
    void respuestaTrasElFin_seDevuelveAlMomento();
    void negadaTrasElFin_noSePideAOtro();
    void sinNinguno_nada();
    void sinBus_nada();

private:
    void ponerPortal()
    {
        m_portal = std::make_unique<Servicio>(delPortal, u"org.freedesktop.portal.Inhibit"_s);
        QVERIFY(m_portal->corre);
    }
    void ponerGestor()
    {
        m_gestor = std::make_unique<Servicio>(delGestor, delGestor);
        QVERIFY(m_gestor->corre);
    }
    // Returns when all that this process has said to the bus so far has been carried there, and
    // what came back has been taken.
    void entregar();

    std::unique_ptr<Servicio> m_portal;
    std::unique_ptr<Servicio> m_gestor;
};

void tst_Vigilia::entregar()
{
    for (int vez = 0; vez < 4; ++vez) {
        for (const QString &nombre : {delPortal, delGestor}) {
            QDBusMessage eco = QDBusMessage::createMethodCall(
                nombre, u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
            eco.setAutoStartService(false);
            const QDBusPendingCallWatcher respuesta(QDBusConnection::sessionBus().asyncCall(eco));
            QSignalSpy contestado(&respuesta, &QDBusPendingCallWatcher::finished);
            QVERIFY(contestado.wait());
        }
        QCoreApplication::processEvents();
    }
}

void tst_Vigilia::portal_loSostieneHastaElFin()
{
    ponerPortal();
    {
        const Vigilia vigilia(motivo);
        QTRY_COMPARE(m_portal->sostenidos.size(), 1);
        QCOMPARE(m_portal->argumento(0).toString(), QString());
        QCOMPARE(m_portal->argumento(1).toUInt(), cierreYSuspension);
        const auto opciones = qdbus_cast<QVariantMap>(m_portal->argumento(2));
        QCOMPARE(opciones.value(u"reason"_s).toString(), motivo);
        entregar();
        QCOMPARE(m_portal->sostenidos.size(), 1);
    }
    QTRY_COMPARE(m_portal->sostenidos.size(), 0);
    entregar();
    QCOMPARE(m_portal->pedidos.size(), 1);
    QCOMPARE(m_portal->deMas, QStringList());
}

void tst_Vigilia::sinPortal_loSostieneElGestor()
{
    ponerGestor();
    {
        const Vigilia vigilia(motivo);
        QTRY_COMPARE(m_gestor->sostenidos.size(), 1);
        QCOMPARE(m_gestor->argumento(0).toString(), u"example.parvanel.prueba"_s);
        QCOMPARE(m_gestor->argumento(1).toUInt(), 0U);
        QCOMPARE(m_gestor->argumento(2).toString(), motivo);
        QCOMPARE(m_gestor->argumento(3).toUInt(), cierreYSuspension);
        entregar();
        QCOMPARE(m_gestor->sostenidos.size(), 1);
    }
    QTRY_COMPARE(m_gestor->sostenidos.size(), 0);
    QCOMPARE(m_gestor->pedidos.size(), 1);
    QCOMPARE(m_gestor->deMas, QStringList());
}

void tst_Vigilia::portalQueNoPuede_loSostieneElGestor_data()
{
    QTest::addColumn<int>("modo");
    QTest::newRow("dice que no") << static_cast<int>(Servicio::Modo::Niega);
    QTest::newRow("lo toma y no puede") << static_cast<int>(Servicio::Modo::NiegaDespues);
    QTest::newRow("lo toma y no lo dice a tiempo") << static_cast<int>(Servicio::Modo::SeAgota);
    QTest::newRow("no puede, y luego lo toma") << static_cast<int>(Servicio::Modo::NiegaAntes);
}

void tst_Vigilia::portalQueNoPuede_loSostieneElGestor()
{
    QFETCH(int, modo);
    ponerPortal();
    ponerGestor();
    m_portal->modo = static_cast<Servicio::Modo>(modo);
    {
        const Vigilia vigilia(motivo);
        QTRY_COMPARE(m_gestor->sostenidos.size(), 1);
        entregar();
        QCOMPARE(m_gestor->pedidos.size(), 1);
        QCOMPARE(m_portal->sostenidos.size(), 0);
    }
    QTRY_COMPARE(m_gestor->sostenidos.size(), 0);
    entregar();
    QCOMPARE(m_portal->deMas, QStringList());
}

void tst_Vigilia::conPortal_alGestorNoSePide()
{
    ponerPortal();
    ponerGestor();
    const Vigilia vigilia(motivo);
    QTRY_COMPARE(m_portal->sostenidos.size(), 1);
    entregar();
    QCOMPARE(m_gestor->pedidos.size(), 0);
}

void tst_Vigilia::unaDentroDeOtra_cadaUnaPorSuCuenta()
{
    ponerPortal();
    const Vigilia larga(motivo);
    QTRY_COMPARE(m_portal->sostenidos.size(), 1);
    const QString deLaLarga = m_portal->sostenidos.first();
    {
        const Vigilia corta(u"Se están imprimiendo documentos"_s);
        QTRY_COMPARE(m_portal->sostenidos.size(), 2);
    }
    QTRY_COMPARE(m_portal->sostenidos, QStringList{deLaLarga});
}

void tst_Vigilia::respuestaTrasElFin_seDevuelveAlMomento_data()
{
    QTest::addColumn<bool>("conPortal");
    QTest::newRow("del portal") << true;
    QTest::newRow("del gestor") << false;
}

void tst_Vigilia::respuestaTrasElFin_seDevuelveAlMomento()
{
    QFETCH(bool, conPortal);
    if (conPortal)
        ponerPortal();
    else
        ponerGestor();
    Servicio &servicio = conPortal ? *m_portal : *m_gestor;
    servicio.modo = Servicio::Modo::Calla;
    {
        const Vigilia vigilia(motivo);
        QTRY_COMPARE(servicio.pedidos.size(), 1);
    }
    entregar();
    servicio.modo = Servicio::Modo::Otorga;
    servicio.contestar(servicio.pedidos.first());
    QCOMPARE(servicio.sostenidos.size(), 1);
    QTRY_COMPARE(servicio.sostenidos.size(), 0);
    QCOMPARE(servicio.deMas, QStringList());
}

void tst_Vigilia::negadaTrasElFin_noSePideAOtro()
{
    ponerPortal();
    ponerGestor();
    m_portal->modo = Servicio::Modo::Calla;
    {
        const Vigilia vigilia(motivo);
        QTRY_COMPARE(m_portal->pedidos.size(), 1);
    }
    m_portal->modo = Servicio::Modo::Niega;
    m_portal->contestar(m_portal->pedidos.first());
    entregar();
    QCOMPARE(m_gestor->pedidos.size(), 0);
}

void tst_Vigilia::sinNinguno_nada()
{
    {
        const Vigilia vigilia(motivo);
        entregar();
    }
    entregar();
    // One that comes up later has nothing to hold or to give back.
    ponerPortal();
    ponerGestor();
    entregar();
    QVERIFY(m_portal->pedidos.isEmpty() && m_portal->deMas.isEmpty());
    QVERIFY(m_gestor->pedidos.isEmpty() && m_gestor->deMas.isEmpty());
}

void tst_Vigilia::sinBus_nada()
{
    QVERIFY(bienSinBus());
}

int main(int argc, char *argv[])
{
    if (argc > 1 && std::strcmp(argv[1], "--sin-bus") == 0) {
        const QGuiApplication aplicacion(argc, argv);
        const Vigilia vigilia(motivo);
        QCoreApplication::processEvents();
        return 0;
    }
    const BusPrivado bus; // before anything could ask for another
    hayBus = bus.corre();
    const QGuiApplication aplicacion(argc, argv);
    tst_Vigilia pruebas;
    return QTest::qExec(&pruebas, argc, argv);
}

#include "tst_Vigilia.moc"
