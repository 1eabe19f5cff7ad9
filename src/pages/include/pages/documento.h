// SPDX-License-Identifier: MIT
// A kind of stored document, as the archive run and the print jobs share it: where its pages come
// from, what is rewritten in them, and where they go.
#pragma once

#include "pages/reemplazos.h"

#include <QString>

#include <span>

class frmCargador;
struct Entorno;
struct Module1;

// All that it refers to is constant data of the program and lives as long.
struct FilaDocumento {
    std::span<const Plantilla> carpetas{}; // created in this order
    Plantilla salida{};                    // their folder, with "\" at its end
    Plantilla url{};
    Plantilla parametros{};
    QString (*tipo)(const Module1 &) = nullptr; // chosen once for a whole list
    std::span<const Reemplazo> reemplazos{};
    QStringView guion{}; // appended to the page; may be empty
};

// The kinds that the school's settings choose.
QString tipoBoletin(const Module1 &sesion);
QString tipoInfoFinal(const Module1 &sesion);
QString tipoCertificado(const Module1 &sesion);

// Adds the row's own values, which are the same for all its records: its kind and its folder.
void ponerValores(const FilaDocumento &fila, const Module1 &sesion, Valores &valores);

// Makes the row's folders. One that exists, or cannot be made, is passed over.
void crearCarpetas(const FilaDocumento &fila, const Valores &valores, Entorno &entorno);

// Fetches the page of the record that `valores` names, localises it and stores it as `archivo` in
// place of an earlier one. A page that did not come is stored as whatever came instead.
void guardarDocumento(const FilaDocumento &fila, const Valores &valores, bool usarAzar,
                      const QString &archivo, frmCargador &cargador, Entorno &entorno);
