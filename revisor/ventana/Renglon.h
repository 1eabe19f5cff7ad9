// SPDX-License-Identifier: MIT
// One finding as the window shows it, of whatever it is a finding: texts that can be shown as they
// are, without anything that steers its reader.
#pragma once

#include "revisor/Revision.h"
#include "revisor/comprobacion.h"

#include <QList>
#include <QString>

struct Renglon {
    QString quien{}; // the student; empty when it concerns nobody in particular
    QString id{};    // and the id that tells one from another of the same name
    QString salon{};
    QString que{};     // the kind of finding, in words
    QString detalle{}; // what is particular to this one
    QString archivo{};
    QString queHacer{};
    int clase = 0;  // where its kind stands among the others
    QString ruta{}; // the file itself, native; empty when it is none that can be opened
};

// The findings that make an archive incomplete, and those that are only remarks.
QList<Renglon> renglonesDeFaltas(const Resultado &resultado);
QList<Renglon> renglonesDeNotas(const Resultado &resultado);

QList<Renglon> renglonesDe(const copia::Comprobacion &comprobacion);
