// SPDX-License-Identifier: MIT
// What makes the archives makes no links here, and the names that others refuse cannot be had.
#include "revisor/danios.h"

namespace danios {

QList<Danio> deEsteSistema()
{
    return {};
}

QSet<int> imposiblesAqui()
{
    return {reglas::EnlaceSinDestino, reglas::CarpetaFuera, reglas::NombreDificil};
}

} // namespace danios
