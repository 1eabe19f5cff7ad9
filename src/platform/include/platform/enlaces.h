// SPDX-License-Identifier: MIT
// Links on a disk, for whoever goes through a folder and is to stay in it.
#pragma once

#include <filesystem>

namespace enlaces {

// Whether the entry is a link that leads to another place, whatever kind of link the system has;
// false when the system does not say. A file that is only fetched when it is read is none.
bool esEnlace(const std::filesystem::directory_entry &entrada);

} // namespace enlaces
