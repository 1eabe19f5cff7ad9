// SPDX-License-Identifier: MIT
// A program as this project's are, for the test of what each begins with. It says its arguments,
// one a line; `--biblioteca NOMBRE` says whether the system finds that library.
#include "platform/proceso.h"

#include <QLibrary>

#include <cstdio>

int main(int argc, char *argv[])
{
    proceso::asegurar();
    const std::vector<std::string> argumentos = proceso::argumentos(argc, argv);
    if (argumentos.size() == 2 && argumentos[0] == "--biblioteca")
        return QLibrary(QString::fromStdString(argumentos[1])).load() ? 0 : 1;
    for (const std::string &argumento : argumentos)
        std::printf("%s\n", argumento.c_str());
    std::fputs("fin\n\n", stderr);
    proceso::soltarConsola(); // of whoever has started it, and stays
    std::puts("dicho");
    return 0;
}
