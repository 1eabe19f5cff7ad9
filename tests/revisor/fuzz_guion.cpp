// SPDX-License-Identifier: MIT
// Any bytes as the settings or as a library: they are compiled, never run, and the reader comes
// back.
#include "guion.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *datos, std::size_t largo)
{
    const QByteArray bytes(reinterpret_cast<const char *>(datos), static_cast<qsizetype>(largo));
    // Seven variables, each with one failing at the most, and the script as a whole.
    if (guion::revisarConfiguracion(bytes).size() > 8)
        __builtin_trap();
    [[maybe_unused]] const guion::EstadoBiblioteca estado = guion::estadoDeBiblioteca(bytes);
    return 0;
}
