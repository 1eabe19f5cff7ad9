// SPDX-License-Identifier: MIT
#include "memoriaMayor.h"

#include <windows.h>

#include <psapi.h>

qint64 memoriaMayor()
{
    PROCESS_MEMORY_COUNTERS cuentas = {};
    if (GetProcessMemoryInfo(GetCurrentProcess(), &cuentas, sizeof cuentas) == FALSE)
        return -1;
    return static_cast<qint64>(cuentas.PeakWorkingSetSize);
}

bool crecerEsCopiar()
{
    return true;
}
