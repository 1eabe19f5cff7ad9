// SPDX-License-Identifier: MIT
// The ANSI code page of the service's replies and of the archive's files: Windows-1252,
// whatever the locale.
#pragma once

#include <QByteArray>
#include <QString>

namespace codepage {

// One character for each byte. The five bytes that the code page leaves undefined become the
// control characters of the same number, so that every byte survives the trip to text and back.
QString aTexto(const QByteArray &bytes);

// One byte for each character; a character that the code page lacks becomes "?".
QByteArray aBytes(const QString &texto);

// Letter case, over the letters of this code page only, accented ones included, one character
// for one: no locale and no expansion ("ß" stays "ß").
QString enMayusculas(const QString &texto);
QString enMinusculas(const QString &texto);

} // namespace codepage
