// The print jobs: six kinds of document are downloaded, stored and printed by one loop, a table
// row each; enrolment sheets, which are printed from the archive, stand beside it.
#pragma once

#include "archive/imagenes.h"
#include "archive/reemplazos.h"

#include <QList>
#include <QString>
#include <QStringList>

class PanelImpresion;
class Verbos;
struct Entorno;
struct Module1;

// One downloading job. Texts may name the places of rutasArchivo::valores, {recortado} (the
// archive folder with the session's values trimmed), {salida} (the row's folder), {tipo} (its
// document kind), {periodo}, {codigo} (the row's first field) and {azar} (the random number).
struct FilaTrabajo {
    QString nombre{};        // the text of ComboTipo
    bool conPeriodo = false; // the period is asked for
    QString lista{};         // the list query's page
    QString separador{};     // of the fields of its rows
    QStringList carpetas{};  // created in this order
    QString salida{};
    QString url{};
    QString (*tipo)(const Module1 &) = nullptr;
    QList<Reemplazo> reemplazos{};
    QString (*guion)() = nullptr;
    QList<Imagen> imagenes{}; // fetched after the loop
};

// All of them, in the order in which the kinds are compared.
extern const QList<FilaTrabajo> filasTrabajo;

// The document kind of report cards.
QString tipoBoletin(const Module1 &sesion);

// Runs the job of the kind, if there is one, to its end. Its checks show their messages on the
// panel; every other failure is passed over and the next document follows.
void correrTrabajo(const QString &tipo, Entorno &entorno, PanelImpresion &panel, Verbos &verbos);
