// SPDX-License-Identifier: MIT
#include "worker/render/casa.h"

#include <QByteArray>
#include <QFile>

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

// The user's own certificate store is read, never made.
constexpr auto certificados = ".pki/nssdb";

void enlazar(const fs::path &suya, const fs::path &nueva, const char *nombre)
{
    std::error_code falta; // without them a page is drawn with the system's own
    if (!suya.is_absolute() || !fs::exists(suya / nombre, falta))
        return;
    fs::create_directories((nueva / nombre).parent_path(), falta);
    fs::create_symlink(suya / nombre, nueva / nombre, falta);
}

// One of the standard folders, which lies in the home unless the user says otherwise.
void mudarCarpeta(const char *variable, const fs::path &suya, const fs::path &nueva,
                  const char *enCasa, const char *nombre)
{
    const std::string dicha = qgetenv(variable).toStdString();
    enlazar(dicha.empty() ? suya / enCasa : fs::path(dicha), nueva / enCasa, nombre);
    qputenv(variable, QByteArray::fromStdString((nueva / enCasa).string()));
}

} // namespace

QString casa::mudar()
{
    const fs::path suya = qgetenv("HOME").toStdString();
    std::error_code falla;
    std::string modelo = (fs::temp_directory_path(falla) / "parvanel-casa-XXXXXX").string();
    const bool hecha = !falla && mkdtemp(modelo.data());
    const fs::path nueva = hecha ? modelo : "/dev/null";
    qputenv("HOME", QByteArray::fromStdString(nueva.string()));
    for (const char *nombre : {certificados, ".fonts", ".fonts.conf", ".fonts.conf.d"})
        enlazar(suya, nueva, nombre);
    mudarCarpeta("XDG_CONFIG_HOME", suya, nueva, ".config", "fontconfig");
    mudarCarpeta("XDG_DATA_HOME", suya, nueva, ".local/share", "fonts");
    mudarCarpeta("XDG_CACHE_HOME", suya, nueva, ".cache", "fontconfig");
    return hecha ? QFile::decodeName(modelo.c_str()) : QString();
}

void casa::desalojar(const QString &carpeta)
{
    if (carpeta.isEmpty())
        return;
    std::error_code sinImportancia; // it lies among temporary files
    fs::remove_all(QFile::encodeName(carpeta).toStdString(), sinImportancia);
}
