// SPDX-License-Identifier: MIT
#include "EscritorZip.h"

#include <archive.h>
#include <archive_entry.h>

#include <chrono>

namespace copia {

namespace {

la_ssize_t escribirEn(archive * /*zip*/, void *salida, const void *bytes, size_t cuantos)
{
    const auto pedidos = static_cast<qint64>(cuantos);
    const qint64 escritos =
        static_cast<QIODevice *>(salida)->write(static_cast<const char *>(bytes), pedidos);
    return escritos == pedidos ? static_cast<la_ssize_t>(escritos) : -1;
}

} // namespace

void EscritorZip::Soltar::operator()(archive *zip) const
{
    // One that was not closed must not be closed now: nobody looks at the output any more.
    static_cast<void>(archive_write_fail(zip));
    static_cast<void>(archive_write_free(zip)); // what could fail had to be done by cerrar()
}

EscritorZip::EscritorZip(QIODevice &salida) : m_zip(archive_write_new())
{
    constexpr int bloque = 65536;
    archive *zip = m_zip.get();
    m_listo = zip != nullptr && archive_write_set_format_zip(zip) == ARCHIVE_OK
              && archive_write_set_bytes_per_block(zip, bloque) == ARCHIVE_OK
              // No zeros at its end.
              && archive_write_set_bytes_in_last_block(zip, 1) == ARCHIVE_OK
              && archive_write_open(zip, &salida, nullptr, escribirEn, nullptr) == ARCHIVE_OK;
}

EscritorZip::~EscritorZip() = default;

bool EscritorZip::entrada(const QByteArray &nombre, qint64 bytes,
                          std::filesystem::file_time_type escrito, unsigned tipo)
{
    if (!m_listo)
        return false;
    const std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entrada(archive_entry_new(),
                                                                                archive_entry_free);
    if (!entrada)
        return false;
    const auto momento = std::chrono::file_clock::to_sys(escrito).time_since_epoch();
    constexpr unsigned permisosCarpeta = 0755;
    constexpr unsigned permisosArchivo = 0644;
    // As the bytes of the process's own encoding, which is UTF-8: whenever libarchive converts a
    // name it composes its accents too, and two names may become one.
    archive_entry_set_pathname(entrada.get(), nombre.constData());
    archive_entry_set_filetype(entrada.get(), tipo);
    archive_entry_set_perm(entrada.get(), tipo == AE_IFDIR ? permisosCarpeta : permisosArchivo);
    archive_entry_set_size(entrada.get(), bytes);
    archive_entry_set_mtime(entrada.get(),
                            std::chrono::floor<std::chrono::seconds>(momento).count(), 0);
    // A warning is a name or a size that was written otherwise than asked for.
    return archive_write_header(m_zip.get(), entrada.get()) == ARCHIVE_OK;
}

bool EscritorZip::carpeta(const QByteArray &nombre, std::filesystem::file_time_type escrito)
{
    return entrada(nombre + '/', 0, escrito, AE_IFDIR);
}

bool EscritorZip::archivo(const QByteArray &nombre, qint64 bytes,
                          std::filesystem::file_time_type escrito)
{
    return entrada(nombre, bytes, escrito, AE_IFREG);
}

bool EscritorZip::agregar(std::span<const char> bytes)
{
    return archive_write_data(m_zip.get(), bytes.data(), bytes.size())
           == static_cast<la_ssize_t>(bytes.size());
}

bool EscritorZip::terminarArchivo()
{
    return archive_write_finish_entry(m_zip.get()) == ARCHIVE_OK;
}

bool EscritorZip::cerrar()
{
    return m_listo && archive_write_close(m_zip.get()) == ARCHIVE_OK;
}

} // namespace copia
