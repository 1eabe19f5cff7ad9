#include "worker/temporal.h"

#include <cstdlib>
#include <initializer_list>
#include <string>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

CarpetaTemporal::CarpetaTemporal()
{
    for (const char *base : std::initializer_list<const char *>{
             std::getenv("TMPDIR"), std::getenv("XDG_RUNTIME_DIR"), "/tmp"}) {
        if (!base || *base != '/')
            continue;
        std::string plantilla = std::string(base) + "/parvanel-print-XXXXXX";
        if (mkdtemp(plantilla.data())) {
            ruta_ = plantilla;
            return;
        }
    }
}

CarpetaTemporal::~CarpetaTemporal()
{
    std::error_code sinImportancia; // nobody is left to be told
    if (!ruta_.empty())
        fs::remove_all(ruta_, sinImportancia);
}
