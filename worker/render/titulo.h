// SPDX-License-Identifier: MIT
// The page's own title, as a name for its print job.
#pragma once

#include <QByteArray>
#include <QString>

namespace titulo {

// The most that a print server takes, in bytes.
constexpr qsizetype largoMaximo = 255;

// One line of UTF-8: blanks and control characters, however many, are one blank between words, and
// what is longer than a server takes is cut between two characters. Empty when nothing is left.
QByteArray paraImpresora(QString dado);

} // namespace titulo
