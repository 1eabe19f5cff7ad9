// A private folder for the drawn pages, gone when it goes out of scope.
#pragma once

#include <filesystem>

class CarpetaTemporal {
public:
    // Below TMPDIR, XDG_RUNTIME_DIR or /tmp, the first that takes it; only the user may enter it.
    CarpetaTemporal();
    ~CarpetaTemporal();
    CarpetaTemporal(const CarpetaTemporal &) = delete;
    CarpetaTemporal &operator=(const CarpetaTemporal &) = delete;

    // Empty when no folder could be made.
    const std::filesystem::path &ruta() const { return ruta_; }

private:
    std::filesystem::path ruta_;
};
