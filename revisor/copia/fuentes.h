// SPDX-License-Identifier: MIT
// Where the files of a copy come from: a ZIP, or the folder unpacked from it.
#pragma once

#include "revisor/copia.h"

#include <QByteArray>

#include <memory>
#include <span>
#include <vector>

namespace copia {

// Takes the next bytes; false ends the reading.
using Recibir = std::function<bool(std::span<const char>)>;

class Fuente {
public:
    struct Entrada {
        QByteArray nombre; // relative, with "/", UTF-8
        qint64 bytes = 0;  // as announced: a ZIP may lie about it
    };
    enum class Lectura {
        Entera,
        Rota,        // other bytes than were written: what came is not to be believed
        Interrumpida // `recibir` said so
    };

    virtual ~Fuente() = default;
    // The files, each name once; their indices stand for them.
    virtual const std::vector<Entrada> &entradas() const = 0;
    // What stands there and is no file to be read: links and the like.
    virtual std::vector<QByteArray> extranas() const = 0;
    // A file's bytes, in blocks. Neither what `recibir` has got nor how much is limited here.
    virtual Lectura leer(std::size_t indice, const Recibir &recibir) = 0;
    // The most bytes that all files together can hold honestly.
    virtual qint64 tope() const = 0;
    // Why nothing is to be believed, in Spanish; empty as long as that has not come out. It may
    // come out when a file is read.
    virtual QString rechazo() const = 0;
    // What speaks against it although each file is as it was, in Spanish; else empty.
    virtual QString reparo() const = 0;
};

std::unique_ptr<Fuente> fuenteZip(const std::filesystem::path &zip, const std::stop_token &parar);
std::unique_ptr<Fuente> fuenteCarpeta(const std::filesystem::path &carpeta,
                                      const std::stop_token &parar);

} // namespace copia
