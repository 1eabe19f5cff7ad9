// SPDX-License-Identifier: MIT
// Does something at every turn of the event loop while it lives: an event that posts itself again,
// of which a turn delivers one.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <functional>

class Turnos : public QObject {
public:
    explicit Turnos(std::function<void()> hacer) : m_hacer(std::move(hacer)) { esperar(); }

    bool event(QEvent *suceso) override
    {
        if (suceso->type() != QEvent::User)
            return QObject::event(suceso);
        esperar(); // first: what is done may turn the loop itself
        m_hacer();
        return true;
    }

private:
    void esperar() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }

    std::function<void()> m_hacer;
};

// Does something once, at the next turn of the event loop.
inline void enElProximoTurno(QObject &mientrasViva, std::function<void()> hacer)
{
    QMetaObject::invokeMethod(&mientrasViva, std::move(hacer), Qt::QueuedConnection);
}
