// SPDX-License-Identifier: MIT
// A private folder for the drawn pages, gone when it goes out of scope.
#pragma once

#include <filesystem>

class CarpetaTemporal {
public:
    // Below TMPDIR, XDG_RUNTIME_DIR or /tmp, the first that takes it; only the user may enter it.
    // Folders in these places that workers of the same user have left behind are removed: whose
    // lock is free, which the system sees to however a worker ends.
    CarpetaTemporal();
    ~CarpetaTemporal();
    CarpetaTemporal(const CarpetaTemporal &) = delete;
    CarpetaTemporal &operator=(const CarpetaTemporal &) = delete;

    // Empty when no folder could be made.
    const std::filesystem::path &ruta() const { return m_ruta; }

private:
    bool crear(const std::filesystem::path &lugar);

    std::filesystem::path m_ruta;
    int m_cerrojo = -1; // the folder, open and locked
};
