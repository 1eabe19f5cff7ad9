// SPDX-License-Identifier: MIT
// The one place that knows where things stand in an archive. The root is written with a capital
// C when it is created and with a lower-case one where paths are built; both are the same folder.
#pragma once

#include "pages/plantilla.h"

#include <QString>

struct Entorno;
struct Module1;

namespace rutasArchivo {

// "C:\Quorvela"
QString raiz();

// The archive folder of the session's school and year, without a separator at its end:
// "c:\Quorvela\123-2010".
QString carpeta(const Module1 &sesion);

// Its document folder, with one: "c:\Quorvela\123-2010\archivos\".
QString documentos(const Module1 &sesion);

// Values for the places that are the same in the whole session: the service, the school, the year
// and the archive's folders.
Valores valores(const Entorno &entorno);

} // namespace rutasArchivo
