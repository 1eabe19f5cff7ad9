// SPDX-License-Identifier: MIT
#include "platform/companeros.h"

#include <algorithm>
#include <system_error>

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

bool ejecutable(const fs::path &programa)
{
    std::error_code sinImportancia; // what cannot be asked about is none
    return programa.is_absolute() && fs::is_regular_file(programa, sinImportancia)
           && ::access(programa.c_str(), X_OK) == 0;
}

} // namespace

std::array<fs::path, 3> companeros::lugares(const std::string &nombre, const fs::path &propia)
{
    return {propia / nombre, (propia / "../libexec/parvanel" / nombre).lexically_normal(),
            fs::path(PARVANEL_LIBEXECDIR) / nombre};
}

std::optional<fs::path> companeros::hallar(const std::string &nombre, const fs::path &propia)
{
    const auto donde = lugares(nombre, propia);
    const auto *const hallado = std::find_if(donde.begin(), donde.end(), ejecutable);
    return hallado == donde.end() ? std::nullopt : std::optional(*hallado);
}
