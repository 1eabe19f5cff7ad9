// SPDX-License-Identifier: MIT
// Everything is as it should be: libraries come from the system's folders, a terminal takes bytes
// as they are, and the desktop knows a window by its desktop file.
#include "platform/proceso.h"

namespace proceso {

void asegurar() {}

std::vector<std::string> argumentos(int argc, const char *const *argv)
{
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void soltarConsola() {}

} // namespace proceso
