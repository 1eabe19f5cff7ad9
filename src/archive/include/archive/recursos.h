// SPDX-License-Identifier: MIT
// What all pages of an archive share: two script libraries, the script of school variables and
// the common images.
#pragma once

#include <QList>
#include <QPair>
#include <QString>

struct Entorno;

// Fetches them all into the archive. `carpetaArchivos` is the archive's document folder with "\"
// at its end and without line breaks. Whatever does not come is missing, or stored empty.
void descargarRecursos(Entorno &entorno, const QString &carpetaArchivos);

// The configuration script of name and value pairs: a line `var name = "value";` for each, the
// values as they stand, ended by CR LF.
QString guionDeConfiguracion(const QList<QPair<QString, QString>> &valores);
