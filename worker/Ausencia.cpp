// SPDX-License-Identifier: MIT
#include "worker/Ausencia.h"

namespace {

constexpr std::chrono::seconds entreIntentos{1};

} // namespace

bool Ausencia::notar(Momento ahora)
{
    const bool nueva = !m_desde;
    if (nueva)
        m_desde = ahora;
    m_intento = ahora + entreIntentos;
    return nueva;
}

Ausencia::Momento Ausencia::vencidos(Momento ahora) const
{
    const bool bastante = m_desde && ahora - *m_desde >= m_plazo;
    return bastante ? ahora - m_plazo : Momento::min();
}
