// SPDX-License-Identifier: MIT
// The findings of a review in the order in which a school looks for them.
#pragma once

#include "revisor/Revision.h"

#include <vector>

namespace informe {

// Pointers lead into the result that was grouped, which must outlive them.
using Hallazgos = std::vector<const Hallazgo *>;

struct DePersona {
    QString nombre; // empty: of the classroom itself
    Hallazgos hallazgos;
};

struct DeSalon {
    QString nombre; // empty: of no classroom in particular
    std::vector<DePersona> personas;
};

struct DeRegla {
    const Regla *regla = nullptr;
    Hallazgos hallazgos;
};

// What is missing or damaged, by classroom and person, "8-2" before "10-1"; first what is of the
// classroom itself, and at the end what is of no classroom.
std::vector<DeSalon> porSalon(const Resultado &resultado);

// The remarks, by rule.
std::vector<DeRegla> notas(const Resultado &resultado);

// The archive as it is called, by its folder's path if it has no name, and that path.
QString nombreDe(const Resultado &resultado);
QString carpetaDe(const Resultado &resultado);

// A name, and beside it the id that tells it from another of the same name.
QString conId(const QString &nombre, const QString &id);

} // namespace informe
