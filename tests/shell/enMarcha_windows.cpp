// SPDX-License-Identifier: MIT
#include "enMarcha.h"

#include <QString>

#include <windows.h>

namespace {

struct Busqueda {
    DWORD proceso;
    bool hallada;
};

BOOL CALLBACK mirar(HWND ventana, LPARAM dato)
{
    auto *busqueda = reinterpret_cast<Busqueda *>(dato);
    DWORD proceso = 0;
    wchar_t titulo[64] = {};
    if (GetWindowThreadProcessId(ventana, &proceso) == 0 || proceso != busqueda->proceso
        || IsWindowVisible(ventana) == FALSE)
        return TRUE;
    const int largo = GetWindowTextW(ventana, titulo, static_cast<int>(std::size(titulo)));
    busqueda->hallada =
        QString::fromWCharArray(titulo, largo).startsWith(QStringLiteral("Parvanel Version"));
    return busqueda->hallada ? FALSE : TRUE;
}

} // namespace

// The main window, by its title, is to be seen.
bool enMarcha(qint64 pid)
{
    Busqueda busqueda = {static_cast<DWORD>(pid), false};
    static_cast<void>( // which says no when it was found
        EnumWindows(mirar, reinterpret_cast<LPARAM>(&busqueda)));
    return busqueda.hallada;
}
