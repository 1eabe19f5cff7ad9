// SPDX-License-Identifier: MIT
// A ZIP that is being written, one entry after another.
#pragma once

#include <QByteArray>
#include <QIODevice>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>

struct archive;

namespace copia {

class EscritorZip {
public:
    // `salida` is borrowed, is open for writing and must outlive this object.
    explicit EscritorZip(QIODevice &salida);
    ~EscritorZip();
    EscritorZip(const EscritorZip &) = delete;
    EscritorZip &operator=(const EscritorZip &) = delete;

    // Each says whether it was written as asked for; after a false one, nothing more is of use.
    // Names are UTF-8 with "/". A file's bytes follow with agregar(), exactly as many as announced.
    bool carpeta(const QByteArray &nombre, std::filesystem::file_time_type escrito);
    bool archivo(const QByteArray &nombre, qint64 bytes, std::filesystem::file_time_type escrito);
    bool agregar(std::span<const char> bytes);
    bool terminarArchivo();

    // Writes the list of contents; without it there is no ZIP.
    bool cerrar();

private:
    bool entrada(const QByteArray &nombre, qint64 bytes, std::filesystem::file_time_type escrito,
                 unsigned tipo);

    struct Destino {
        QIODevice &dispositivo;
        bool sirve = true; // every byte so far was taken
    };
    static std::ptrdiff_t recibir(archive *zip, void *salida, const void *bytes,
                                  std::size_t cuantos);
    struct Soltar {
        void operator()(archive *zip) const;
    };
    Destino m_destino;
    std::unique_ptr<archive, Soltar> m_zip; // writes to it until its end
    bool m_listo = false;
};

} // namespace copia
