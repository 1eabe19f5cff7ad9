// SPDX-License-Identifier: MIT
// What the program asks of the service, and which file of the archive comes of it; what a review
// says of files, to be held against that.
#pragma once

#include "revisor/Revision.h"

#include <QByteArray>
#include <QSet>
#include <QString>

// Where the reply to a request for this target is stored, as a path in the archive; empty for the
// lists and for what nothing stores.
QString destinoEnArchivo(const QByteArray &destino);

// The files that are not as they should be, by a review: remarks about what was not fetched count.
QSet<QString> dichos(const Resultado &resultado);

// Of the first set what the second has not: some of it, for showing.
QString primeros(QSet<QString> unos, const QSet<QString> &otros);
