// SPDX-License-Identifier: MIT
// Does something at every turn of the event loop while it lives: an event that posts itself again,
// of which a turn delivers one. Windows' loop delivers it several times in one turn; there the
// first of them counts, as the loop says when a turn begins.
#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <functional>

class Turnos : public QObject {
public:
    explicit Turnos(std::function<void()> hacer) : m_hacer(std::move(hacer))
    {
        const auto *bucle = QAbstractEventDispatcher::instance();
        m_repite = bucle->inherits("QEventDispatcherWin32");
        connect(
            bucle, &QAbstractEventDispatcher::awake, this, [this] { m_empezado = true; },
            Qt::DirectConnection);
        esperar();
    }

    bool event(QEvent *suceso) override
    {
        if (suceso->type() != QEvent::User)
            return QObject::event(suceso);
        esperar(); // first: what is done may turn the loop itself
        if (m_repite && !m_empezado)
            return true;
        m_empezado = false;
        m_hacer();
        return true;
    }

private:
    void esperar() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }

    std::function<void()> m_hacer;
    bool m_repite = false;   // whether one turn may deliver more than one event
    bool m_empezado = false; // a turn, of which none has been delivered yet
};

// Does something once, at the next turn of the event loop.
inline void enElProximoTurno(QObject &mientrasViva, std::function<void()> hacer)
{
    QMetaObject::invokeMethod(&mientrasViva, std::move(hacer), Qt::QueuedConnection);
}
