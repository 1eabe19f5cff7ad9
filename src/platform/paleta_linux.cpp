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

QPalette paletaOscura()
{
    const QColor ventana(0x2b, 0x2b, 0x2e);
    const QColor base(0x3d, 0x3d, 0x42);
    const QColor texto(0xee, 0xee, 0xee);
    const QColor apagado(0xa0, 0xa0, 0xa6);
    const QColor boton(0x50, 0x50, 0x56);
    QPalette paleta(boton, ventana);
    paleta.setColor(QPalette::WindowText, texto);
    paleta.setColor(QPalette::ButtonText, texto);
    paleta.setColor(QPalette::Base, base);
    paleta.setColor(QPalette::AlternateBase, ventana.darker(110));
    paleta.setColor(QPalette::Text, texto);
    paleta.setColor(QPalette::PlaceholderText, apagado);
    paleta.setColor(QPalette::ToolTipBase, base);
    paleta.setColor(QPalette::ToolTipText, texto);
    paleta.setColor(QPalette::Highlight, QColor(0x2f, 0x7f, 0xc4));
    paleta.setColor(QPalette::HighlightedText, Qt::white);
    paleta.setColor(QPalette::Link, QColor(0x6c, 0xb4, 0xf0));
    for (const auto papel : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        paleta.setColor(QPalette::Disabled, papel, apagado);
    return paleta;
}

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
