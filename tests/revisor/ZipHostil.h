// SPDX-License-Identifier: MIT
// ZIPs that no honest program writes, byte by byte, and what another library finds in one.
#pragma once

#include <QByteArray>
#include <QMetaType>

#include <archive.h>
#include <archive_entry.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <zlib.h>

namespace ZipHostil {

struct Entrada {
    QByteArray nombre;
    QByteArray bytes;
    unsigned modo = 0100644;
};
using Entradas = std::vector<Entrada>;

inline QByteArray numero(quint64 valor, int bytes)
{
    QByteArray texto;
    for (int i = 0; i < bytes; ++i)
        texto += static_cast<char>(valor >> (8 * i));
    return texto;
}

// The bare stream of deflate.
inline QByteArray apretado(const QByteArray &bytes)
{
    QByteArray salida = qCompress(bytes, 9).mid(4 + 2); // Qt's length, zlib's header
    salida.chop(4);                                     // and zlib's sum
    return salida;
}

// What stands after the mark in the header of a file and, mostly, in its line of the list.
inline QByteArray datos(const QByteArray &nombre, const QByteArray &bytes,
                        const QByteArray &guardado)
{
    const auto suma = crc32(0, reinterpret_cast<const Bytef *>(bytes.constData()),
                            static_cast<uInt>(bytes.size()));
    return numero(20, 2) + numero(0x800, 2) + numero(bytes == guardado ? 0 : 8, 2) + numero(0, 2)
           + numero(0x21, 2) + numero(suma, 4) + numero(static_cast<quint64>(guardado.size()), 4)
           + numero(static_cast<quint64>(bytes.size()), 4)
           + numero(static_cast<quint64>(nombre.size()), 2) + numero(0, 2);
}

// A ZIP of the entries, as they are, and of the same `comunes` under each name of `nombres`: these
// are stored once.
inline QByteArray hacer(const Entradas &entradas, const QByteArray &comunes = {},
                        const std::vector<QByteArray> &nombres = {})
{
    QByteArray zip;
    QByteArray lista;
    const auto enLista = [&](const QByteArray &nombre, const QByteArray &cabeza, unsigned modo,
                             qsizetype lugar) {
        lista += "PK\1\2" + numero(0x314, 2) + cabeza + numero(0, 6)
                 + numero(static_cast<quint64>(modo) << 16, 4)
                 + numero(static_cast<quint64>(lugar), 4) + nombre;
    };
    for (const Entrada &entrada : entradas) {
        const QByteArray cabeza = datos(entrada.nombre, entrada.bytes, entrada.bytes);
        enLista(entrada.nombre, cabeza, entrada.modo, zip.size());
        zip += "PK\3\4" + cabeza + entrada.nombre + entrada.bytes;
    }
    const QByteArray guardado = apretado(comunes);
    const qsizetype lugar = zip.size();
    for (const QByteArray &nombre : nombres)
        enLista(nombre, datos(nombre, comunes, guardado), 0100644, lugar);
    if (!nombres.empty())
        zip += "PK\3\4" + datos(nombres.front(), comunes, guardado) + nombres.front() + guardado;
    const auto cuantas = static_cast<quint64>(entradas.size() + nombres.size());
    const QByteArray cierre = numero(0, 4) + numero(cuantas, 2) + numero(cuantas, 2)
                              + numero(static_cast<quint64>(lista.size()), 4)
                              + numero(static_cast<quint64>(zip.size()), 4) + numero(0, 2);
    return zip + lista + "PK\5\6" + cierre;
}

// The files of a ZIP, name by name.
inline std::map<QByteArray, QByteArray> contenido(const std::filesystem::path &ruta)
{
    std::map<QByteArray, QByteArray> archivos;
    const std::unique_ptr<archive, decltype(&archive_read_free)> zip(archive_read_new(),
                                                                     archive_read_free);
    archive_read_support_format_zip(zip.get());
    std::ifstream archivo(ruta, std::ios::binary);
    const std::string todo{std::istreambuf_iterator<char>(archivo),
                           std::istreambuf_iterator<char>()};
    if (archive_read_open_memory(zip.get(), todo.data(), todo.size()) != ARCHIVE_OK)
        return archivos;
    archive_entry *entrada = nullptr;
    while (archive_read_next_header(zip.get(), &entrada) == ARCHIVE_OK) {
        QByteArray &bytes = archivos[archive_entry_pathname_utf8(entrada)];
        QByteArray bloque(65536, '\0');
        la_ssize_t cuantos = 0;
        while ((cuantos = archive_read_data(zip.get(), bloque.data(),
                                            static_cast<std::size_t>(bloque.size())))
               > 0)
            bytes.append(bloque.constData(), cuantos);
    }
    return archivos;
}

} // namespace ZipHostil

Q_DECLARE_METATYPE(ZipHostil::Entradas)
