// SPDX-License-Identifier: MIT
#include "worker/Ausencia.h"

namespace {

constexpr std::chrono::seconds entreIntentos{1};

} // namespace

bool Ausencia::notar(Momento ahora)
{
    const bool nueva = !desde_;
    if (nueva)
        desde_ = ahora;
    intento_ = ahora + entreIntentos;
    return nueva;
}

Ausencia::Momento Ausencia::vencidos(Momento ahora) const
{
    const bool bastante = desde_ && ahora - *desde_ >= plazo_;
    return bastante ? ahora - plazo_ : Momento::min();
}
