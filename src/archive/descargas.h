// The download loop that the archive's methods share: one table row for each method, read by one
// procedure.
#pragma once

#include "archive/reemplazos.h"

#include <QList>
#include <QString>
#include <QStringList>

class tcLista;
struct Entorno;
struct Module1;

// One method. Texts may name the places of rutasArchivo::valores, {salida} (the row's output
// folder), {tipo} (its document kind), {id} (the record's) and {foto} (the row's photo address).
struct FilaDescarga {
    QString titulo{};       // shown in estadoTS
    QString prefijo{};      // of each item's text in estadoHS
    QStringList carpetas{}; // created in this order
    QString salida{};       // output folder, with "\" at its end
    QString url{};
    QString parametros{};
    QString (*tipo)(const Module1 &) = nullptr; // the document kind, chosen once for the whole call
    QList<Reemplazo> reemplazos{};
    bool conGuion = false; // the script of student documents is appended
    QString foto{};        // not empty: the reply says whether this file exists, and it is what
                           // gets stored
};

namespace filasDescarga {

extern const FilaDescarga salones;
extern const FilaDescarga consolidadoN;
extern const FilaDescarga consolidadoF;
extern const FilaDescarga infoFinal;
extern const FilaDescarga certificado;
extern const FilaDescarga hojaMat;
extern const FilaDescarga infoAlumno;
extern const FilaDescarga fotosAlumno;

} // namespace filasDescarga

// The document kinds that the school's settings choose.
QString tipoInfoFinal(const Module1 &sesion);
QString tipoCertificado(const Module1 &sesion);

// Stores one item for each record of the list, and drives the progress elements. A step that
// fails is passed over: a page that did not come is stored as whatever came instead.
void descargar(const FilaDescarga &fila, tcLista &lista, Entorno &entorno);

// The text of one item: "Descargando Salon (14): 6A - 3 de 12".
QString textoDescarga(const QString &prefijo, const QString &id, const QString &nombre,
                      int posicion, int cuantos);
