// SPDX-License-Identifier: MIT
#include "platform/proceso.h"

#include <QString>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <type_traits>

namespace proceso {

namespace {

UINT paginaAnterior = 0; // of the console, which outlives this process

void devolverPagina()
{
    static_cast<void>(SetConsoleOutputCP(paginaAnterior)); // the console may be gone by now
}

void hablarUtf8()
{
    paginaAnterior = GetConsoleOutputCP();
    // Without a console there is nothing to set, and nothing to give back.
    if (paginaAnterior == 0 || paginaAnterior == CP_UTF8 || SetConsoleOutputCP(CP_UTF8) == 0)
        return;
    static_cast<void>(std::atexit(devolverPagina)); // else the console stays with UTF-8
}

// Ahead of whatever else the program starts with, the libraries linked into it included: the first
// number that is not the compiler's own.
[[gnu::constructor(101)]] void buscarSoloEnElSistema()
{
    // Neither fails on a Windows that this program runs on; on another one it would run as it is.
    static_cast<void>(SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32));
    static_cast<void>(SetDllDirectoryW(L""));
}

struct Soltar {
    void operator()(wchar_t **partes) const { LocalFree(partes); }
};

} // namespace

void asegurar()
{
    for (std::FILE *salida : {stdout, stderr})
        // What has no file behind it, as in a program that has no console, writes nothing.
        static_cast<void>(_setmode(_fileno(salida), _O_BINARY));
    hablarUtf8();
}

// What main is given has been through the system's code page, where it has lost what that lacks.
std::vector<std::string> argumentos(int argc, const char *const *argv)
{
    int cuantos = 0;
    const std::unique_ptr<wchar_t *, Soltar> partes(
        CommandLineToArgvW(GetCommandLineW(), &cuantos));
    if (!partes)
        return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc)
                        : std::vector<std::string>();
    std::vector<std::string> todos;
    for (int i = 1; i < cuantos; ++i)
        todos.push_back(QString::fromWCharArray(partes.get()[i]).toStdString());
    return todos;
}

void soltarConsola()
{
    DWORD procesos[2];
    if (GetConsoleProcessList(procesos, 2) == 1)
        static_cast<void>(FreeConsole()); // it has been there the moment before
}

} // namespace proceso
