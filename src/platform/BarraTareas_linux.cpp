// SPDX-License-Identifier: MIT
#include "platform/BarraTareas.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QVariantMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A signal to whoever listens: most desktops have nobody who does. What the process has shown goes
// with its connection, should it end in the middle of it.
void anunciar(const QVariantMap &propiedades)
{
    QDBusMessage aviso =
        QDBusMessage::createSignal(u"/com/canonical/unity/launcherentry/1"_s,
                                   u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    aviso << QString(u"application://"_s + QGuiApplication::desktopFileName() + u".desktop"_s)
          << propiedades;
    [[maybe_unused]] const bool enviado = // without a bus there is no such task bar
        QDBusConnection::sessionBus().send(aviso);
}

} // namespace

void BarraTareas::mostrar(int centesimas)
{
    const int nuevas = std::clamp(centesimas, 0, 100);
    if (nuevas == m_vistas)
        return;
    m_vistas = nuevas;
    anunciar({{u"progress"_s, nuevas / 100.0}, {u"progress-visible"_s, true}});
}

void BarraTareas::quitar()
{
    if (m_vistas == ninguna)
        return;
    m_vistas = ninguna;
    anunciar({{u"progress"_s, 0.0}, {u"progress-visible"_s, false}});
}
