// SPDX-License-Identifier: MIT
#include "service/azar.h"

#include <chrono>
#include <cmath>

void Azar::sembrar()
{
    const auto ahora = std::chrono::system_clock::now().time_since_epoch().count();
    m_generador.seed(static_cast<std::ranlux24_base::result_type>(ahora));
}

double Azar::siguiente()
{
    // It draws 24 bits, which no rounding makes 1.
    return static_cast<double>(m_generador()) / 16777216.0;
}

std::int32_t Azar::numero()
{
    return numeroDe(siguiente());
}

std::int32_t Azar::numeroDe(double r)
{
    // nearbyint rounds halves to even in the rounding mode that every program starts in.
    return static_cast<std::int32_t>(std::nearbyint(1000000.0 - 999000.0 * r));
}
