// SPDX-License-Identifier: MIT
// Apart from what goes by it: a test of what waits puts a clock of its own in its place.
#include "Paciencia.h"

#include <thread>

Paciencia::Reloj Paciencia::relojDelSistema()
{
    return {[] {
                return std::chrono::duration_cast<Milisegundos>(
                    std::chrono::steady_clock::now().time_since_epoch());
            },
            [](Milisegundos cuanto) {
                std::this_thread::sleep_for(cuanto);
            }};
}
