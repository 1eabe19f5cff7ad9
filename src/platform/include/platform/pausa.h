// SPDX-License-Identifier: MIT
// The fixed pause after a file download.
#pragma once

#include <chrono>

// Stops the window's thread for this much wall time. No handler runs meanwhile.
void pausa(std::chrono::nanoseconds duracion);
