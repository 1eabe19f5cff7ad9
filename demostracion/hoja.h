// What all pages of the service share: the frame of a page and the school's letterhead.
#pragma once

#include "demostracion/valores.h"

namespace demo {

QString texto(const QString &crudo); // escaped for HTML
// A whole page. `cabeza`: further elements of its head. `estilo`: further rules of its style.
QString pagina(const QString &titulo, const QString &estilo, const QString &cuerpo,
               const QString &cabeza = {});
QString membrete(const Contexto &c, Membrete manera, const QString &titulo);
// A small table of label and value pairs, `columnas` pairs in a row.
QString datos(const QList<QPair<QString, QString>> &pares, int columnas);
// The principal's and the secretary's signature lines; the principal's with the drawn signature
// when `conFirma`.
QString firmas(const Contexto &c, Membrete manera, bool conFirma);

} // namespace demo
