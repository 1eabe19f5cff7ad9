// SPDX-License-Identifier: MIT
#include "Paciencia.h"

#include <algorithm>
#include <utility>

Paciencia::Paciencia(Reloj reloj) : m_reloj(std::move(reloj)) {}

bool Paciencia::esperar()
{
    const Milisegundos ahora = m_reloj.ahora();
    if (!m_hasta)
        m_hasta = ahora + total;
    if (ahora >= *m_hasta)
        return false;
    m_reloj.dormir(std::min(paso, *m_hasta - ahora));
    return true;
}
