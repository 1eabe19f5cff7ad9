// SPDX-License-Identifier: MIT
// The window that Windows knows the program by.
#pragma once

struct HWND__;

// The first of the program's windows that is shown and stands on its own (no message box, no menu);
// null while there is none. For the thread of the windows.
HWND__ *ventanaPropia();
