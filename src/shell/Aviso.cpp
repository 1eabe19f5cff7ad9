// SPDX-License-Identifier: MIT
#include "Aviso.h"

#include <QWidget>

Aviso::Aviso(QWidget *ventana, const QString &texto) : QObject(ventana), m_texto(texto) {}

QWidget *Aviso::ventana() const
{
    return static_cast<QWidget *>(parent());
}

AvisoAccesible::AvisoAccesible(Aviso *aviso) : QAccessibleObject(aviso) {}

const Aviso &AvisoAccesible::aviso() const
{
    return *static_cast<const Aviso *>(object());
}

QAccessibleInterface *AvisoAccesible::parent() const
{
    return QAccessible::queryAccessibleInterface(aviso().ventana());
}

QString AvisoAccesible::text(QAccessible::Text que) const
{
    return que == QAccessible::Name ? aviso().texto() : QString();
}

QAccessible::Role AvisoAccesible::role() const
{
    return QAccessible::Notification;
}

QAccessible::State AvisoAccesible::state() const
{
    return {};
}

// Somewhere in its window: what has no place at all readers take for hidden.
QRect AvisoAccesible::rect() const
{
    return {aviso().ventana()->mapToGlobal(QPoint()), QSize(1, 1)};
}
