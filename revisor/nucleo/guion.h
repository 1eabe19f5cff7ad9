// SPDX-License-Identifier: MIT
// Scripts of an archive: compiled to see whether they would run, and never run.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// What is wrong with the settings or a library; empty when nothing is.
struct FallaDeGuion {
    enum Clase { Ausente, Vacio, Roto, NoCorre };
    Clase clase = NoCorre;
    QString dato; // the variable concerned: "rector"
};

namespace guion {

// The settings' script, in bytes of Windows-1252: the variables that a page needs, each in a line
// of its own, and the whole as a script. In the order of the variables.
QList<FallaDeGuion> revisarConfiguracion(const QByteArray &bytes);

enum class EstadoBiblioteca { Buena, Vacia, EsPagina, Cortada };

// A script library. One that is written in a later language than this compiler knows is taken for
// good, unless the compiler came to its end.
EstadoBiblioteca estadoDeBiblioteca(const QByteArray &bytes);

} // namespace guion
