// SPDX-License-Identifier: MIT
// The reading of a page or a style: what it is, and where its links lead.
#pragma once

#include "Lectura.h"

#include <QByteArray>

// The text of a document without the script at its end and the line end after that.
struct Cuerpo {
    QByteArray bytes;
    bool conGuion = false;
};
Cuerpo cuerpoDe(const QByteArray &bytes, const Familia &familia);

// What the file's bytes say is added to its reading.
void leerPaginaDe(const Entrada &entrada, const QByteArray &bytes, const Contexto &contexto,
                  Lectura &lectura);
void leerEstiloDe(const Entrada &entrada, const QByteArray &bytes, const Contexto &contexto,
                  Lectura &lectura);
