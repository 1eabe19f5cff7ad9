// SPDX-License-Identifier: MIT
// The program's own code in memory. Starting an engine runs, and relocating it reads, tens of
// megabytes that drawing never comes back to.
#pragma once

namespace codigo {

// Gives back what is mapped of the files of this process's program and libraries and can never have
// been written to. What is needed again comes back from the system's cache as it is needed.
void soltar();

} // namespace codigo
