// SPDX-License-Identifier: MIT
// How much memory a renderer and everything that it has started take together.
#pragma once

#include <cstdint>
#include <sys/types.h>

namespace memoria {

// Whether the processes of the group hold more than `limite` bytes in memory. A page of memory that
// several processes share counts once: by its share where the kernel tells that, and otherwise by
// what is nobody else's file. False as well when there is no such group.
bool excede(pid_t grupo, std::uintmax_t limite);

} // namespace memoria
