// SPDX-License-Identifier: MIT
// The reviewer's window, as main() sees it.
#pragma once

// Makes the application and its window, and gives the process's exit status when that is closed.
// The command line is no business of it.
int mostrarVentana();
