// SPDX-License-Identifier: MIT
#include "Tarea.h"

#include <utility>

namespace {

// Often enough for a bar that is looked at, and no burden beside the job.
constexpr std::chrono::milliseconds entreMiradas(50);

} // namespace

void Tarea::Marca::poner(qint64 hechos, qint64 total)
{
    m_total = total;
    m_hechos = hechos;
}

Tarea::Tarea(QObject *padre) : QObject(padre)
{
    m_mirada.setInterval(entreMiradas);
    connect(&m_mirada, &QTimer::timeout, this, &Tarea::mirar);
}

Tarea::~Tarea() = default;

void Tarea::empezar(Trabajo trabajo)
{
    Q_ASSERT(!m_enCurso);
    m_enCurso = true;
    m_dicho = -1;
    m_marca.poner(0, 0);
    std::promise<void> fin;
    m_fin = fin.get_future();
    // The thread before has ended: it has delivered.
    m_hilo = std::jthread([this, trabajo = std::move(trabajo),
                           fin = std::move(fin)](const std::stop_token &parar) mutable {
        const Entrega entrega = trabajo(parar, m_marca);
        QMetaObject::invokeMethod(
            this, [this, entrega] { entregar(entrega); }, Qt::QueuedConnection);
        fin.set_value();
    });
    m_mirada.start();
    empezo();
}

void Tarea::detener()
{
    m_hilo.request_stop();
}

bool Tarea::terminaEn(std::chrono::milliseconds plazo) const
{
    return !m_fin.valid() || m_fin.wait_for(plazo) == std::future_status::ready;
}

void Tarea::mirar()
{
    const qint64 hechos = m_marca.m_hechos;
    if (hechos == m_dicho)
        return;
    m_dicho = hechos;
    avanzo(hechos, m_marca.m_total);
}

void Tarea::entregar(const Entrega &entrega)
{
    m_mirada.stop();
    m_enCurso = false;
    termino();
    entrega();
}
