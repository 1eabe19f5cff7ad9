// SPDX-License-Identifier: MIT
// The service's list format: rows separated by "®", fields by ",". A list may be long and is read
// where it stands: rows are views of the reply, which must outlive them, and a field is copied
// when it is asked for.
#pragma once

#include <QString>
#include <QStringTokenizer>
#include <QStringView>

namespace matriz {

inline constexpr QChar entreFilas = u'\u00AE';

// The rows of a reply one after the other, empty ones included; an empty reply has no rows.
inline auto filas(QStringView rta)
{
    return qTokenize(rta, entreFilas, rta.isEmpty() ? Qt::SkipEmptyParts : Qt::KeepEmptyParts);
}

qsizetype cuantasFilas(QStringView rta);

// One field of a row, counted from 0, untrimmed; empty when the row has fewer.
QString campo(QStringView fila, qsizetype indice, QStringView separador = u",");

// A row's identifier, which is also its key: field 0 without its line breaks.
QString identificador(QStringView fila);

} // namespace matriz
