// SPDX-License-Identifier: MIT
#include "platform/paleta.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {

constexpr auto servicio = "org.freedesktop.portal.Desktop"_L1;
constexpr auto objeto = "/org/freedesktop/portal/desktop"_L1;
constexpr auto interfaz = "org.freedesktop.portal.Settings"_L1;
constexpr auto espacio = "org.freedesktop.appearance"_L1;
constexpr auto clave = "color-scheme"_L1;
constexpr uint prefiereOscuro = 1;

} // namespace

class PaletaEscritorio::Interno : public QObject {
    Q_OBJECT
public:
    Interno()
    {
        // A desktop integration that knows about palettes has set a dark one by now.
        if (QGuiApplication::palette().color(QPalette::Window).lightness() < 128)
            return;
        QDBusConnection bus = QDBusConnection::sessionBus();
        if (!bus.isConnected())
            return;
        // Without it the bus does not know the slot's last argument and refuses the connection.
        qDBusRegisterMetaType<QDBusVariant>();
        // A desktop without this service changes nothing later either.
        [[maybe_unused]] const bool avisara =
            bus.connect(QString(servicio), QString(objeto), QString(interfaz), u"SettingChanged"_s,
                        this, SLOT(alCambiar(QString, QString, QDBusVariant)));
        QDBusMessage pregunta = QDBusMessage::createMethodCall(QString(servicio), QString(objeto),
                                                               QString(interfaz), u"Read"_s);
        pregunta << QString(espacio) << QString(clave);
        auto *espera = new QDBusPendingCallWatcher(bus.asyncCall(pregunta), this);
        connect(espera, &QDBusPendingCallWatcher::finished, this, [this, espera] {
            const QDBusPendingReply<QDBusVariant> respuesta = *espera;
            if (!respuesta.isError())
                aplicar(respuesta.value().variant());
            espera->deleteLater();
        });
    }

private Q_SLOTS:
    void alCambiar(const QString &deEspacio, const QString &deClave, const QDBusVariant &valor)
    {
        if (deEspacio == espacio && deClave == clave)
            aplicar(valor.variant());
    }

private:
    void aplicar(QVariant valor)
    {
        // Older portals wrap the value twice.
        if (valor.canConvert<QDBusVariant>())
            valor = valor.value<QDBusVariant>().variant();
        const bool oscuro = valor.toUInt() == prefiereOscuro;
        if (oscuro == m_oscuro)
            return;
        m_oscuro = oscuro;
        QGuiApplication::setPalette(oscuro ? paletaOscura() : QPalette());
    }

    bool m_oscuro = false;
};

PaletaEscritorio::PaletaEscritorio() : d(std::make_unique<Interno>()) {}

PaletaEscritorio::~PaletaEscritorio() = default;

#include "paleta_linux.moc"
