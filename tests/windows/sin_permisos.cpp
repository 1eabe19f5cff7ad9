// SPDX-License-Identifier: MIT
// Runs another program as an account would that is no administrator, waits for its end and ends as
// it does: Wine's only account always is one.
//
//   sin-permisos COMMAND LINE
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <string>

namespace {

const DWORD noSePudo = 125;

// This account's rights without those of an administrator, or null.
HANDLE permisosDeCualquiera()
{
    HANDLE propios = nullptr;
    HANDLE quitados = nullptr;
    SID_AND_ATTRIBUTES administradores{};
    unsigned char sid[SECURITY_MAX_SID_SIZE];
    DWORD largo = sizeof sid;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &propios)
        || !CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, sid, &largo))
        return nullptr;
    administradores.Sid = sid;
    if (!CreateRestrictedToken(propios, DISABLE_MAX_PRIVILEGE, 1, &administradores, 0, nullptr, 0,
                               nullptr, &quitados))
        return nullptr;
    return quitados;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t *orden, int)
{
    std::wstring linea = orden;
    STARTUPINFOW comienzo{};
    comienzo.cb = sizeof comienzo;
    PROCESS_INFORMATION hijo{};
    const HANDLE permisos = permisosDeCualquiera();
    if (!permisos
        || !CreateProcessAsUserW(permisos, nullptr, linea.data(), nullptr, nullptr, FALSE, 0,
                                 nullptr, nullptr, &comienzo, &hijo))
        return static_cast<int>(noSePudo);
    DWORD codigo = noSePudo;
    WaitForSingleObject(hijo.hProcess, INFINITE);
    if (!GetExitCodeProcess(hijo.hProcess, &codigo))
        return static_cast<int>(noSePudo);
    return static_cast<int>(codigo);
}
