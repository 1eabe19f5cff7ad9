// SPDX-License-Identifier: MIT
// Another program that is at work on a file: keeps the named one open, shared with nobody, says so
// by making the second one, and stays until it is ended.
//
//   sujeta FILE SIGN
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <shellapi.h>

int main()
{
    int cuantos = 0;
    wchar_t **argumentos = CommandLineToArgvW(GetCommandLineW(), &cuantos);
    if (!argumentos || cuantos != 3)
        return 2;
    const HANDLE sujeto = CreateFileW(argumentos[1], GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (sujeto == INVALID_HANDLE_VALUE)
        return 1;
    const HANDLE senal = CreateFileW(argumentos[2], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
    if (senal == INVALID_HANDLE_VALUE)
        return 1;
    CloseHandle(senal);
    Sleep(INFINITE);
}
