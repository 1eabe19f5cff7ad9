// SPDX-License-Identifier: MIT
// The reviewer without a window: does what the command line asks for.
#pragma once

#include <string>
#include <vector>

namespace consola {

// Of the process; of several archives the worst one counts.
enum Salida {
    Entero = 0,
    ConHallazgos = 1,
    Ilegible = 2,
    UsoEquivocado = 64,
};

// `argumentos` are those of platform/proceso.h. Reports go to standard output in UTF-8, what went
// wrong to standard error. It needs no display, and a QCoreApplication. What it gives back is one
// of Salida.
int correr(const std::vector<std::string> &argumentos);

} // namespace consola
