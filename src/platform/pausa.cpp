// SPDX-License-Identifier: MIT
#include "platform/pausa.h"

#include <thread>

void pausa(std::chrono::nanoseconds duracion)
{
    std::this_thread::sleep_for(duracion);
}
