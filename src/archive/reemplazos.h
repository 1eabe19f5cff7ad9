// Page localisation: service addresses in a page become relative paths of the archive. The mix
// of "\" and "/" in what is put in is the archive's own and stays.
#pragma once

#include "archive/plantilla.h"

#include <QList>
#include <QString>

struct Reemplazo {
    enum Cuantos { Todos, SoloElPrimero };

    QString buscar; // may name {base} and {colegio}
    QString poner;  // likewise, and {anio}
    Cuantos cuantos = Todos;
    Qt::CaseSensitivity letras = Qt::CaseInsensitive;
};

// The page with the replacements made, in their order, each over the whole page.
QString localizar(QString pagina, const QList<Reemplazo> &reemplazos, const Valores &valores);

// The rows of the tables.
namespace reemplazos {

Reemplazo imagenesDelColegio(const QString &poner); // the school's own images: logo and the like
Reemplazo etiquetaNota();                           // a text drawn as an image, beginning "NOTA:"
Reemplazo etiqueta();                               // any other text drawn as an image
Reemplazo promovido();                              // the stamps of a final report
Reemplazo reprobado();
Reemplazo folio();  // the folio of a certificate, to be filled in by hand
Reemplazo foto();   // student photos
Reemplazo avatar(); // the picture of a student without a photo

} // namespace reemplazos
