// SPDX-License-Identifier: MIT
// A copy of an archive that can be proven: one ZIP that holds a BagIt 1.0 bag (RFC 8493). The
// archive's files stand below data/, beside them the SHA-256 sum of each, so that anybody can say
// years later whether every byte is as it was, with this program or without it.
//
// Plain functions; they may run in any thread.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <filesystem>
#include <functional>
#include <stop_token>

namespace copia {

// Bytes done and bytes in all, called from the thread that works, after each block of some 64 KiB.
// None is as good as one that does nothing.
using Avance = std::function<void(qint64 hechos, qint64 total)>;

// Something of the folder that is not in the copy. Links that only spell their neighbour otherwise
// are left out without a word: nothing is lost with them.
struct Omitido {
    enum class Motivo {
        Enlace,   // a link: none is followed, it may lead anywhere
        Especial, // neither file nor folder: a pipe, a device
        Resto,    // what is left of an interrupted download; worth nothing
    };
    QString nombre; // relative, with "/"
    Motivo motivo = Motivo::Enlace;

    bool operator==(const Omitido &) const = default;
};

struct Guardada {
    enum class Final {
        Hecha,
        Detenida, // `parar` was asked for
        YaExiste, // there is something of that name, and it was not to be replaced
        Fallo,
    };
    Final final = Final::Fallo;
    QString texto{}; // Spanish, for the user; what was done or why it was not
    QList<Omitido> omitidos{};
    qint64 archivos = 0; // of the archive, without those of the bag itself
    qint64 bytes = 0;    // of those, not of the ZIP
};

struct Encargo {
    std::filesystem::path carpeta; // the archive
    std::filesystem::path destino; // the ZIP, in a folder that is there
    bool reemplazar = false;       // whether an earlier file of that name may go
    QDateTime cuando;              // what the bag gives as its date; the rest is the folder's alone
    QString programa;              // and as its maker, such as "parvanel-revisor 4.0.0"
};

// Sees to it that the process's character type is UTF-8, by which libarchive goes with names unless
// they are wide ones; false when the system has none. Copying and proving ask for it themselves. In
// a session of another encoding it changes the process's locale: whoever has threads asks before
// they start, and after the application object has been made, which sets the locale as well.
bool nombresEnUtf8();

// Writes the copy. It stands in the same folder under another name, or none, until it is whole;
// unless it comes back as Hecha, there is no new file and an earlier one is as it was. The archive
// is only read. Nothing is written when the destination lies in the archive, when a file cannot be
// read, has a name that is no UTF-8 or holds a "\", or changes meanwhile. Memory does not grow with
// the size of files, only with their number.
Guardada guardar(const Encargo &encargo, const Avance &avance, const std::stop_token &parar);

} // namespace copia
