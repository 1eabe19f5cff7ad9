// SPDX-License-Identifier: MIT
// What the window says of a review, or of a copy that was checked, in large and in small letters.
#pragma once

#include "revisor/Revision.h"
#include "revisor/comprobacion.h"

#include <QString>

struct Palabras {
    const char16_t *dibujo = u"pregunta"; // of the window's drawings the one that goes with them
    QString veredicto{};
    QString frase{};
    QString resumen{}; // which one, and how large; empty when there is nothing to tell
};

// `nombre` is what the archive, or the copy, is called in the window.
Palabras palabrasDe(const Resultado &resultado, const QString &nombre);
Palabras palabrasDe(const copia::Comprobacion &comprobacion, const QString &nombre);

// As it is written in Spanish: "12.345".
QString conPuntos(qint64 numero);
