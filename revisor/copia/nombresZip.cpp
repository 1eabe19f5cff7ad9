// SPDX-License-Identifier: MIT
#include "nombresZip.h"
#include "platform/recorrido.h"

#include <QString>

#include <archive.h>
#include <archive_entry.h>

#include <string>
#include <type_traits>

namespace copia::nombresZip {

namespace {

template <typename Letra>
int abrirNativo(archive *zip, const std::basic_string<Letra> &ruta, std::size_t bloque)
{
    if constexpr (std::is_same_v<Letra, wchar_t>)
        return archive_read_open_filename_w(zip, ruta.c_str(), bloque);
    else
        return archive_read_open_filename(zip, ruta.c_str(), bloque);
}

} // namespace

bool marcar(archive *zip)
{
    if constexpr (anchos)
        return archive_write_set_options(zip, "hdrcharset=UTF-8") == ARCHIVE_OK;
    return true;
}

void poner(archive_entry *entrada, const QByteArray &nombre)
{
    if constexpr (anchos) {
        archive_entry_copy_pathname_w(entrada, QString::fromUtf8(nombre).toStdWString().c_str());
    } else {
        // As the bytes of the process's own encoding: whenever libarchive converts a name it
        // composes its accents too, and two names may become one.
        archive_entry_set_pathname(entrada, nombre.constData());
    }
}

std::optional<QByteArray> de(archive_entry *entrada)
{
    if constexpr (anchos) {
        const wchar_t *nombre = archive_entry_pathname_w(entrada);
        return nombre != nullptr ? std::optional(QString::fromWCharArray(nombre).toUtf8())
                                 : std::nullopt;
    } else {
        const char *nombre = archive_entry_pathname(entrada);
        return nombre != nullptr ? std::optional(QByteArray(nombre)) : std::nullopt;
    }
}

int abrir(archive *zip, const std::filesystem::path &ruta, std::size_t bloque)
{
    return abrirNativo(zip, recorrido::paraAbrir(ruta).native(), bloque);
}

} // namespace copia::nombresZip
