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
    if (!fs::exists(suya / nombre, falta))
        return;
    fs::create_directories((nueva / nombre).parent_path(), falta);
    fs::create_symlink(suya / nombre, nueva / nombre, falta);
}

void fijar(const char *variable, const fs::path &carpeta)
{
    if (qEnvironmentVariableIsEmpty(variable))
        qputenv(variable, QByteArray::fromStdString(carpeta.string()));
}

} // namespace

QString casa::mudar()
{
    const fs::path suya = qgetenv("HOME").toStdString();
    std::error_code falla;
    std::string modelo = (fs::temp_directory_path(falla) / "parvanel-casa-XXXXXX").string();
    const bool hecha = !falla && mkdtemp(modelo.data());
    qputenv("HOME", hecha ? QByteArray::fromStdString(modelo) : QByteArray("/dev/null"));
    if (suya.is_absolute()) {
        fijar("XDG_CONFIG_HOME", suya / ".config");
        fijar("XDG_DATA_HOME", suya / ".local/share");
        fijar("XDG_CACHE_HOME", suya / ".cache");
        if (hecha)
            for (const char *nombre : {certificados, ".fonts", ".fonts.conf", ".fonts.conf.d"})
                enlazar(suya, modelo, nombre);
    }
    return hecha ? QFile::decodeName(modelo.c_str()) : QString();
}

void casa::desalojar(const QString &carpeta)
{
    if (carpeta.isEmpty())
        return;
    std::error_code sinImportancia; // it lies among temporary files
    fs::remove_all(QFile::encodeName(carpeta).toStdString(), sinImportancia);
}
