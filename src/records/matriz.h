// The service's list format: rows separated by "®", fields by ",".
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace matriz {

// The rows of a reply, empty ones included; an empty reply has no rows.
QStringList filas(const QString &rta);

// The fields of one row, untrimmed. Missing ones are read as empty with value().
QStringList campos(const QString &fila, const QString &separador = QStringLiteral(","));

// The fields of every row that makes a record: an empty row makes none.
QList<QStringList> registros(const QString &rta);

// A row's identifier, which is also its key: field 0 without its line breaks.
QString identificador(const QStringList &campos);

} // namespace matriz
