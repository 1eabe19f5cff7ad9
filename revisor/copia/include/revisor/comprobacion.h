// SPDX-License-Identifier: MIT
// Whether a copy (revisor/copia.h) is as it was when it was written: the ZIP, or the folder that
// was unpacked from it. Nothing is written or unpacked, no link is followed, and whatever stands in
// a ZIP, its bytes are only counted and summed.
#pragma once

#include "revisor/copia.h"

namespace copia {

struct Diferencia {
    enum class Clase {
        Cambiado,
        Falta,
        Sobra,
    };
    Clase clase = Clase::Cambiado;
    QString nombre; // inside the bag, with "/", such as "data/archivos/salones/7.html"

    bool operator==(const Diferencia &) const = default;
};

struct Comprobacion {
    enum class Veredicto {
        Intacta,   // every byte as it was, nothing more, nothing less
        Distinta,  // `diferencias` says what is not
        NoEsCopia, // no bag, or not one that can be taken at its word
        NoSeLee,   // not there, no ZIP, cut off
        Detenida,  // `parar` was asked for
    };
    Veredicto veredicto = Veredicto::NoSeLee;
    QString texto{};                 // Spanish, for the user: the verdict and its reason
    QList<Diferencia> diferencias{}; // by name
    qint64 archivos = 0;             // of the archive: how many were found to be as they were
    qint64 bytes = 0;                // theirs

    bool operator==(const Comprobacion &) const = default;
};

// `ruta` is a ZIP or a folder. The bag may stand in it or in the only folder that has one.
Comprobacion comprobar(const std::filesystem::path &ruta, const Avance &avance,
                       const std::stop_token &parar);

} // namespace copia
