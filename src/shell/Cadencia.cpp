// SPDX-License-Identifier: MIT
#include "Cadencia.h"
#include "CajaRotulo.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>

#include <utility>

namespace {

constexpr qint64 cuadro = 16; // milliseconds: one picture of sixty a second

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
        caja->installEventFilter(this);
}

// The library asks once for each kind and then waits for its request to be answered: one that is
// held back stands for all that follow it.
bool Cadencia::eventFilter(QObject *objeto, QEvent *suceso)
{
    const bool pinta = suceso->type() == QEvent::UpdateRequest && objeto == m_ventana;
    const bool mide = suceso->type() == QEvent::LayoutRequest;
    if (!pinta && !mide)
        return false;
    // Looked at once: by a second look the picture may be due, and no timer takes a time gone by.
    const qint64 pasado = m_desdePintura.isValid() ? m_desdePintura.elapsed() : cuadro;
    if (m_soltando || pasado >= cuadro) {
        if (pinta)
            m_desdePintura.start();
        return false;
    }
    if (pinta)
        m_porPintar = true;
    else if (!m_porMedir.contains(objeto))
        m_porMedir.append(objeto);
    if (!m_plazo.isActive())
        m_plazo.start(static_cast<int>(cuadro - pasado));
    return true;
}

// Heights first: what they move is painted where it then is.
void Cadencia::alDia()
{
    m_plazo.stop();
    const QScopedValueRollback soltando(m_soltando, true);
    for (const QPointer<QObject> &caja : std::exchange(m_porMedir, {})) {
        QEvent medir(QEvent::LayoutRequest);
        if (caja)
            QCoreApplication::sendEvent(caja, &medir);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(m_ventana, QEvent::UpdateRequest);
    QEvent pintar(QEvent::UpdateRequest);
    if (std::exchange(m_porPintar, false) && m_ventana)
        QCoreApplication::sendEvent(m_ventana, &pintar);
}

Cadencia::Pausa Cadencia::alDiaEn(Pausa pausa)
{
    return [this, pausa = std::move(pausa)](std::chrono::milliseconds duracion) {
        alDia();
        pausa(duracion);
    };
}
