// SPDX-License-Identifier: MIT
// The addresses in a style: those of url() and of @import, read by the syntax of CSS (comments,
// strings, escapes), whatever property they stand in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// In the order in which they stand. `css` is UTF-8, and so are they.
std::vector<std::string> direccionesDeEstilo(std::string_view css);
