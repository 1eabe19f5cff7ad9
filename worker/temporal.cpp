// SPDX-License-Identifier: MIT
#include "worker/temporal.h"

#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view prefijo = "parvanel-print-";
constexpr std::string_view azar = "XXXXXX";

std::vector<fs::path> lugares()
{
    std::vector<fs::path> lugares;
    for (const char *lugar : std::initializer_list<const char *>{
             std::getenv("TMPDIR"), std::getenv("XDG_RUNTIME_DIR"), "/tmp"}) {
        if (lugar && *lugar == '/')
            lugares.emplace_back(lugar);
    }
    return lugares;
}

// The folder, open and locked; -1 when somebody else holds it, or when there is no such folder of
// the user's at this path any more. Never through a link.
int cerrar(const fs::path &carpeta)
{
    const int abierta = open(carpeta.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (abierta < 0)
        return -1;
    struct stat tomada {};
    struct stat hallada {};
    const bool mia = flock(abierta, LOCK_EX | LOCK_NB) == 0 && fstat(abierta, &tomada) == 0
                     && tomada.st_uid == geteuid() && lstat(carpeta.c_str(), &hallada) == 0
                     && hallada.st_dev == tomada.st_dev && hallada.st_ino == tomada.st_ino;
    if (mia)
        return abierta;
    close(abierta);
    return -1;
}

bool esDeUnObrero(const fs::path &carpeta)
{
    const std::string nombre = carpeta.filename().string();
    return nombre.size() == prefijo.size() + azar.size() && nombre.starts_with(prefijo);
}

void borrarAbandonadas(const fs::path &lugar)
{
    std::error_code sinImportancia; // what cannot be removed stays until somebody can
    std::vector<fs::path> carpetas;
    std::error_code fin;
    for (fs::directory_iterator i(lugar, fin), ultima; !fin && i != ultima; i.increment(fin)) {
        if (esDeUnObrero(i->path()))
            carpetas.push_back(i->path());
    }
    for (const fs::path &carpeta : carpetas) {
        const int cerrojo = cerrar(carpeta);
        if (cerrojo < 0)
            continue;
        fs::remove_all(carpeta, sinImportancia);
        close(cerrojo);
    }
}

} // namespace

CarpetaTemporal::CarpetaTemporal()
{
    for (const fs::path &lugar : lugares())
        borrarAbandonadas(lugar);
    for (const fs::path &lugar : lugares()) {
        if (crear(lugar))
            return;
    }
}

// Another worker that starts now may take the new folder, not locked yet, for one that was left
// behind, and then the next is made. Where nothing can be locked, nobody can do that.
bool CarpetaTemporal::crear(const fs::path &lugar)
{
    constexpr int intentos = 10;
    for (int i = 0; i < intentos && m_cerrojo < 0; ++i) {
        std::error_code sinImportancia; // it is gone already
        fs::remove(m_ruta, sinImportancia);
        std::string plantilla = lugar / std::string(prefijo).append(azar);
        if (!mkdtemp(plantilla.data())) {
            m_ruta.clear();
            return false;
        }
        m_ruta = plantilla;
        m_cerrojo = cerrar(m_ruta);
    }
    return true;
}

CarpetaTemporal::~CarpetaTemporal()
{
    std::error_code sinImportancia; // nobody is left to be told
    if (!m_ruta.empty())
        fs::remove_all(m_ruta, sinImportancia);
    if (m_cerrojo >= 0)
        close(m_cerrojo);
}
