// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

// Unpacks a ZIP into a folder that is made for it, by another program than the one under test
// (Windows has none: there it is the library alone); false when that fails.
bool sacarZip(const std::filesystem::path &zip, const std::filesystem::path &carpeta);
