// SPDX-License-Identifier: MIT
// The standard library of this compiler takes a link for what it leads to.
#include "platform/enlaces.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

bool enlaces::esEnlace(const std::filesystem::directory_entry &entrada)
{
    WIN32_FIND_DATAW datos = {};
    HANDLE hallada = FindFirstFileW(entrada.path().c_str(), &datos);
    if (hallada == INVALID_HANDLE_VALUE)
        return false;
    FindClose(hallada);
    // Files in the cloud have such a mark as well, and lead nowhere else.
    return (datos.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0
           && (datos.dwReserved0 == IO_REPARSE_TAG_SYMLINK
               || datos.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}
