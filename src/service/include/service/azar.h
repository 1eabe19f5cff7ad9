// SPDX-License-Identifier: MIT
// The process's one random generator, and the cache-busting number drawn from it.
#pragma once

#include <cstdint>
#include <random>

class Azar {
public:
    // Seeds from the system timer.
    void sembrar();
    // The next value r, 0 <= r < 1.
    double siguiente();
    // A number that defeats caches, drawn without seeding: 1000 to 1000000.
    std::int32_t numero();

    // The whole number nearest to 1000000 - 999000 * r, halves to the even one.
    static std::int32_t numeroDe(double r);

private:
    // Seeded anew for each request, so that one is taken whose seeding costs next to nothing.
    std::ranlux24_base m_generador;
};
