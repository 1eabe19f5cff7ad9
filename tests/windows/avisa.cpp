// SPDX-License-Identifier: MIT
// Tells every window that colours have been changed, as the settings of Windows do when somebody
// changes them there.
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

int main()
{
    const auto cuales = reinterpret_cast<LPARAM>(L"ImmersiveColorSet");
    return SendMessageTimeoutW(HWND_BROADCAST, WM_SETTINGCHANGE, 0, cuales, SMTO_ABORTIFHUNG, 5000,
                               nullptr)
                   != 0
               ? 0
               : 1;
}
