// SPDX-License-Identifier: MIT
#include "segundaLectura.h"
#include "nombresZip.h"

#include <QString>

#include <archive.h>
#include <archive_entry.h>

#include <memory>

namespace copia {

namespace {

struct Soltar {
    void operator()(archive *zip) const { static_cast<void>(archive_read_free(zip)); }
};

// Whether all of the file can be had. The library compares its length and sum by itself.
bool leer(archive *zip, qint64 &quedan, const std::stop_token &parar)
{
    const void *bytes = nullptr;
    std::size_t cuantos = 0;
    la_int64_t lugar = 0;
    int paso = archive_read_data_block(zip, &bytes, &cuantos, &lugar);
    for (; paso == ARCHIVE_OK; paso = archive_read_data_block(zip, &bytes, &cuantos, &lugar)) {
        quedan -= static_cast<qint64>(cuantos);
        if (quedan < 0 || parar.stop_requested())
            return false;
    }
    return paso == ARCHIVE_EOF;
}

} // namespace

std::optional<std::multiset<QByteArray>> leerOtraVez(const std::filesystem::path &zip, qint64 tope,
                                                     const std::stop_token &parar)
{
    constexpr std::size_t bloque = 65536;
    const std::unique_ptr<archive, Soltar> lector(archive_read_new());
    if (!lector || archive_read_support_format_zip_seekable(lector.get()) != ARCHIVE_OK
        || nombresZip::abrir(lector.get(), zip, bloque) != ARCHIVE_OK)
        return std::nullopt;
    std::multiset<QByteArray> nombres;
    archive_entry *entrada = nullptr;
    int paso = archive_read_next_header(lector.get(), &entrada);
    for (; paso == ARCHIVE_OK; paso = archive_read_next_header(lector.get(), &entrada)) {
        const auto nombre = nombresZip::de(entrada);
        if (!nombre)
            return std::nullopt;
        nombres.insert(comparable(*nombre));
        if (!leer(lector.get(), tope, parar))
            return std::nullopt;
    }
    return paso == ARCHIVE_EOF ? std::optional(std::move(nombres)) : std::nullopt;
}

QByteArray comparable(const QByteArray &nombre)
{
    if (!QUtf8StringView(nombre).isValidUtf8())
        return nombre;
    return QString::fromUtf8(nombre).normalized(QString::NormalizationForm_C).toUtf8();
}

} // namespace copia
