// SPDX-License-Identifier: MIT
#include "Vigia.h"
#include "consumo.h"

#include <QCoreApplication>
#include <QEvent>

Vigia::Vigia(std::function<QString()> donde)
    : m_donde(std::move(donde)), m_hilo([this] { avisar(); })
{
}

Vigia::~Vigia()
{
    m_termina = true;
    m_hilo.join();
}

void Vigia::avisar()
{
    while (!m_termina) {
        if (m_enviado == 0) {
            m_enviado = consumo::ahora();
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

bool Vigia::event(QEvent *suceso)
{
    if (suceso->type() != QEvent::User)
        return QObject::event(suceso);
    const double espera = consumo::ahora() - m_enviado;
    if (espera > m_peor) {
        m_peor = espera;
        m_peorEn = m_donde();
    }
    m_enviado = 0;
    return true;
}
