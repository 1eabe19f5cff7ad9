// SPDX-License-Identifier: MIT
// The signals that this process does without.
#pragma once

namespace senales {

// From now on writing to a pipe or connection that nobody reads is an error of the write, and no
// signal that ends the program. It holds for the whole process; called by each one that writes so,
// before it does.
void sinTuberiaRota();

} // namespace senales
