// SPDX-License-Identifier: MIT
// A review as somebody reads it: in words, as text, as a page, and for programs as JSON. Plain
// functions of values. What comes from an archive is only ever text in them: markup shows as it
// is, and what would steer a terminal, or turn the direction of reading, shows as U+FFFD.
#pragma once

#include "revisor/Revision.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

namespace informe {

// The verdict in a few large words: "Completo", "Faltan documentos".
QString titulo(const Resultado &resultado);

// How many and of whom, one or two sentences.
QString explicacion(const Resultado &resultado);

// When it was downloaded, in local time; empty when nothing tells.
QString descargado(const Resultado &resultado);

// The archive's name and both, in one line without its end.
QString renglon(const Resultado &resultado);

// A text without whatever steers its reader instead of being read: control characters, and those
// that turn the direction of writing.
QString legible(const QString &texto);

// Of how many things a finding is one: "en 3 páginas", "son 3 archivos de la carpeta"; empty when
// it is the only one.
QString cuantasVeces(const Hallazgo &hallazgo);

// What is particular to a finding, with that, in one line for showing; empty when there is nothing.
QString enUnRenglon(const Hallazgo &hallazgo);

// For a terminal or a text file: lines ended by a line feed, the last one too.
QString enTexto(const Resultado &resultado);

// Who made a report and when.
struct Sello {
    QString programa; // "parvanel-revisor 4.0.0"
    QDateTime cuando;
};

// One page in UTF-8 for all of them, which needs no other file and no connection, runs nothing,
// and is made to be printed as well.
QByteArray enHtml(const QList<Resultado> &resultados, const Sello &sello);

// One object in UTF-8 for all of them, described in docs/review.md, with a line feed at its end.
// Its version is raised when a field changes its meaning or goes; a new one is no change.
QByteArray enJson(const QList<Resultado> &resultados, const Sello &sello);

} // namespace informe
