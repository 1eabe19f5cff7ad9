// SPDX-License-Identifier: MIT
// A file that is being received into a folder of the archive, under a temporary name.
//
// The name says whose it is (see temporales.h). While it is written to nobody else can delete it,
// so that one which a killed process left behind is told from one under way.
#pragma once

#include "RaizArchivo_windows.h"
#include "platform/DriveC.h"

#include <QString>
#include <QStringList>

#include <memory>

// Removes temporary files from an open folder whose writers live no longer. `ruta` is the folder's
// native path, by which its names are read.
void quitarTemporalesAbandonados(const CarpetaAbierta &carpeta, const QString &ruta);

// Begins to receive a file of the spelling `nombre` into the open folder that `ruta` (names from
// the root on) leads to; null when no temporary file can be made there. `raiz` is borrowed and must
// outlive the result.
std::unique_ptr<ArchivoEntrante> recibirEn(RaizArchivo &raiz, const QStringList &ruta,
                                           CarpetaAbierta carpeta, const QString &nombre);
