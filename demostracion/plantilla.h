// SPDX-License-Identifier: MIT
// The service's pages are files of ./paginas, which a browser shows and an editor changes: HTML
// with places in the manner of Mustache.
//   {{alumno.nombre}}            a text, escaped for HTML; {{{...}}} as it is
//   {{#filas}}...{{/filas}}      once for each row; for a bool, when it is true; for a map, inside
//   it
//   {{^pasa}}...{{/pasa}}        when it is false, or has no row
//   {{> membrete}}               the file of that name in ./paginas/partes
//   {{! ... }}                   is not sent
#pragma once

#include <QString>
#include <QVariantMap>

namespace demo {

// The page of that name, whole, with its places filled in from texts, numbers, bools, lists and
// maps. Its lines end in CR LF; the common style sheet stands in the place of its import, and the
// page says that it is Windows-1252, as which it goes out (the files are UTF-8 and say so).
// A place without a value, or a file that does not exist, is an error of the program and ends it.
QString llenar(const QString &pagina, const QVariantMap &valores);

} // namespace demo
