// SPDX-License-Identifier: MIT
#include "EscritorZip.h"
#include "nombresZip.h"

#include <archive.h>
#include <archive_entry.h>

#include <chrono>

namespace copia {

// The library is never told of a failure: it would leave what it has begun, and lose its memory.
std::ptrdiff_t EscritorZip::recibir(archive * /*zip*/, void *salida, const void *bytes,
                                    std::size_t cuantos)
{
    auto &destino = *static_cast<Destino *>(salida);
    const auto pedidos = static_cast<qint64>(cuantos);
    destino.sirve =
        destino.sirve
        && destino.dispositivo.write(static_cast<const char *>(bytes), pedidos) == pedidos;
    return static_cast<std::ptrdiff_t>(cuantos);
}

void EscritorZip::Soltar::operator()(archive *zip) const
{
    static_cast<void>(archive_write_free(zip)); // what could fail had to be done by cerrar()
}

EscritorZip::EscritorZip(QIODevice &salida)
    : m_destino{.dispositivo = salida}, m_zip(archive_write_new())
{
    constexpr int bloque = 65536;
    archive *zip = m_zip.get();
    m_listo = zip != nullptr && archive_write_set_format_zip(zip) == ARCHIVE_OK
              && nombresZip::marcar(zip)
              && archive_write_set_bytes_per_block(zip, bloque) == ARCHIVE_OK
              // No zeros at its end.
              && archive_write_set_bytes_in_last_block(zip, 1) == ARCHIVE_OK
              && archive_write_open(zip, &m_destino, nullptr, recibir, nullptr) == ARCHIVE_OK;
}

EscritorZip::~EscritorZip()
{
    // One that was not closed is ended by the library, for nobody.
    m_destino.sirve = false;
}

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
    using Permisos = decltype(archive_entry_perm(nullptr)); // of another width on each system
    constexpr Permisos permisosCarpeta = 0755;
    constexpr Permisos permisosArchivo = 0644;
    nombresZip::poner(entrada.get(), nombre);
    archive_entry_set_filetype(entrada.get(), tipo);
    archive_entry_set_perm(entrada.get(), tipo == AE_IFDIR ? permisosCarpeta : permisosArchivo);
    archive_entry_set_size(entrada.get(), bytes);
    archive_entry_set_mtime(entrada.get(),
                            std::chrono::floor<std::chrono::seconds>(momento).count(), 0);
    // A warning is a name or a size that was written otherwise than asked for.
    return archive_write_header(m_zip.get(), entrada.get()) == ARCHIVE_OK && m_destino.sirve;
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
               == static_cast<la_ssize_t>(bytes.size())
           && m_destino.sirve;
}

bool EscritorZip::terminarArchivo()
{
    return archive_write_finish_entry(m_zip.get()) == ARCHIVE_OK && m_destino.sirve;
}

bool EscritorZip::cerrar()
{
    return m_listo && archive_write_close(m_zip.get()) == ARCHIVE_OK && m_destino.sirve;
}

} // namespace copia
