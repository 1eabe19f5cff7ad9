// SPDX-License-Identifier: MIT
// The programs of one installation, which start one another. Without Qt, for the print worker too.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

namespace companeros {

// Where the program of that name may stand, the best place first: beside the running program, whose
// folder is `propia` (absolute, without links; empty when it is not known); where an installation
// that was moved has it
// ("../libexec/parvanel" from there); where this one was to be installed. None has to exist.
std::array<std::filesystem::path, 3> lugares(const std::string &nombre,
                                             const std::filesystem::path &propia);

// The first of these places that holds a file which may be executed; nothing when none does. It is
// absolute: what stands in the folder that somebody happens to be in is no program of this one's.
std::optional<std::filesystem::path> hallar(const std::string &nombre,
                                            const std::filesystem::path &propia);

} // namespace companeros
