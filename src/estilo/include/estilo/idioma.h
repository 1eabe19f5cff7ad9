// SPDX-License-Identifier: MIT
// The language of what the library itself shows: the menus of text boxes, the file dialogs.
#pragma once

namespace idioma {

// It is Spanish from now on; where its catalogue is not to be had, it stays English. There must be
// an application.
void poner();

} // namespace idioma
