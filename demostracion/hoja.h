// What all pages of the service share: the frame of a page and the school's letterhead.
#pragma once

#include "demostracion/Escuela.h"

namespace demo {

struct Contexto {
    const Escuela &escuela;
    QString base; // scheme, host and port, without a trailing slash

    QString ajuste(const QString &campo) const { return escuela.ajustes.value(campo); }
    // Address of one of the school's own images: "logo.png", "rector.png".
    QString imagenColegio(const QString &nombre) const;
};

// How a page comes by the school's details.
enum class Membrete {
    Escrito,     // the service writes them all
    PorGuion,    // name and motto written; the script at the page's end fills the rest by id
    TodoPorGuion // the script fills name and motto as well
};

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
