// SPDX-License-Identifier: MIT
// Any bytes as an image: they are decoded, and the reader comes back.
#include "imagen.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *datos, std::size_t largo)
{
    [[maybe_unused]] const EstadoImagen estado = estadoDeImagen(
        QByteArray(reinterpret_cast<const char *>(datos), static_cast<qsizetype>(largo)));
    return 0;
}
