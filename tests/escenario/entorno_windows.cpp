// SPDX-License-Identifier: MIT
// Wine keeps variables that begin with "QT_" from the programs that it runs, since those of the
// desktop are not meant for them. A test is meant for them: they come under another name, and get
// their own back before anybody asks for them.
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr auto prefijo = "PARVANEL_DE_";

[[gnu::constructor]] void devolver()
{
    std::vector<std::string> todas;
    for (char **una = _environ; una != nullptr && *una != nullptr; ++una) {
        if (std::strncmp(*una, prefijo, std::strlen(prefijo)) == 0)
            todas.emplace_back(*una + std::strlen(prefijo));
    }
    for (const std::string &una : todas)
        _putenv(una.c_str());
}

} // namespace
