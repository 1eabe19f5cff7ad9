// SPDX-License-Identifier: MIT
// All of the program's writing to disk: folders, text files, and files fetched by address. None
// of them reports an error beyond its result; a failed step is passed over and the procedure
// that called goes on.
#pragma once

#include "service/Entorno.h"

#include <QString>

// Lets the window repaint and its other handlers run.
void ceder();

// Makes one folder, the line breaks taken out of its path. One that exists already, or whose
// parent is missing, is passed over: callers make them one by one from the top down.
void crearCarpeta(Entorno &entorno, const QString &ruta);

// The text-file writer: adds `texto` and a line end (CR LF) to the file, as bytes of the ANSI
// code page; with `borrar` the earlier file is deleted first.
void escribirTexto(Entorno &entorno, const QString &texto, const QString &archivo, bool borrar);

// The same with bytes of that code page. A long page whose caller gives it away is not copied.
void escribirBytes(Entorno &entorno, QByteArray bytes, const QString &archivo, bool borrar);

// Fetches the address into the file, in place of an earlier one, and pauses 500 ms. True when
// the file exists afterwards and is longer than 8 bytes. The file is written to the path without
// its line breaks but measured at the path as given, so a path with a line break gives false
// even though the file arrived.
bool descargarArchivo(Entorno &entorno, const QString &url, const QString &archivo);
