// SPDX-License-Identifier: MIT
// A task bar that notes what it is told.
#pragma once

#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariantMap>

// Hears by a connection of its own, from its making on.
class OidoBarra : public QObject {
    Q_OBJECT
public:
    struct Dicho {
        QString programa;
        double avance = 0;
        bool visible = false;
    };

    OidoBarra()
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                              QStringLiteral("barra de tareas")))
    {
        oye =
            m_bus.connect(QString(), QString(), QStringLiteral("com.canonical.Unity.LauncherEntry"),
                          QStringLiteral("Update"), this, SLOT(alDecir(QString, QVariantMap)));
    }
    ~OidoBarra() override { QDBusConnection::disconnectFromBus(QStringLiteral("barra de tareas")); }

    QList<Dicho> dichos;
    bool oye = false;

private Q_SLOTS:
    void alDecir(const QString &programa, const QVariantMap &propiedades)
    {
        dichos.append({programa, propiedades.value(QStringLiteral("progress")).toDouble(),
                       propiedades.value(QStringLiteral("progress-visible")).toBool()});
    }

private:
    QDBusConnection m_bus;
};
