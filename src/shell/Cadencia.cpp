// SPDX-License-Identifier: MIT
#include "Cadencia.h"
#include "CajaRotulo.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 cuadro = 16; // milliseconds: one picture of sixty a second
constexpr qint64 respiro = 4; // milliseconds: far longer than it takes to send a request

} // namespace

Cadencia::Cadencia()
{
    m_plazo.setSingleShot(true);
    m_plazo.setTimerType(Qt::PreciseTimer);
    connect(&m_plazo, &QTimer::timeout, this, &Cadencia::alDia);
}

void Cadencia::seguir(QWidget *ventana)
{
    m_ventana = ventana;
    ventana->installEventFilter(this);
    const QList<CajaRotulo *> cajas = ventana->findChildren<CajaRotulo *>();
    for (CajaRotulo *caja : cajas)
        connect(caja, &CajaRotulo::porMedir, this, [this, caja] { porMedir(caja); });
}

// The library asks once and then waits for its request to be answered: one that is held back stands
// for all that follow it.
bool Cadencia::eventFilter(QObject *objeto, QEvent *suceso)
{
    if (suceso->type() != QEvent::UpdateRequest || objeto != m_ventana)
        return false;
    if (m_soltando) {
        m_desdePintura.start();
        return false;
    }
    m_porPintar = true;
    retener();
    return true;
}

void Cadencia::porMedir(CajaRotulo *caja)
{
    if (!m_porMedir.contains(caja))
        m_porMedir.append(caja);
    retener();
}

void Cadencia::retener()
{
    if (m_plazo.isActive())
        return;
    const qint64 pasado = m_desdePintura.isValid() ? m_desdePintura.elapsed() : cuadro;
    m_plazo.start(static_cast<int>(std::max(cuadro - pasado, respiro)));
}

// Heights first: what they move is painted where it then is.
void Cadencia::alDia()
{
    m_plazo.stop();
    const QScopedValueRollback soltando(m_soltando, true);
    for (const QPointer<CajaRotulo> &caja : std::exchange(m_porMedir, {})) {
        if (caja)
            caja->medir();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(m_ventana, QEvent::UpdateRequest);
    QEvent pintar(QEvent::UpdateRequest);
    if (std::exchange(m_porPintar, false) && m_ventana)
        QCoreApplication::sendEvent(m_ventana, &pintar);
}

Cadencia::Pausa Cadencia::alDiaEn(Sueno duermeLoQueResta)
{
    return [this, dormir = std::move(duermeLoQueResta)](std::chrono::milliseconds duracion) {
        const auto hasta = std::chrono::steady_clock::now() + duracion;
        alDia();
        dormir(std::max(hasta - std::chrono::steady_clock::now(), std::chrono::nanoseconds(0)));
    };
}
