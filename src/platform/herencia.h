// SPDX-License-Identifier: MIT
// What a program that is started here gets of this one's open files: nothing.
#pragma once

namespace herencia {

// Closes every descriptor but the standard ones on exec. Libraries open some that would go along,
// and a pipe or connection held open by a browser would never end. Called before each start.
void nada();

} // namespace herencia
