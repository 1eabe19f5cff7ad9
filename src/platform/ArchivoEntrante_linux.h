// SPDX-License-Identifier: MIT
// A file that is being received into a folder of the archive, under a temporary name.
//
// The name says whose it is (see temporales.h), and the file is locked for as long as it is written
// to, so that one which a killed process left behind is told from one under way.
#pragma once

#include "RaizArchivo_linux.h"
#include "platform/DriveC.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <memory>

// Removes temporary files from an open folder whose writers live no longer.
void quitarTemporalesAbandonados(NombresDeCarpeta &nombres, const Descriptor &carpeta);

// Begins to receive a file of the spelling `nombre` into the open folder that `ruta` (names from
// the root on) leads to; null when no temporary file can be made there. `raiz` is borrowed and must
// outlive the result.
std::unique_ptr<ArchivoEntrante> recibirEn(RaizArchivo &raiz, const QStringList &ruta,
                                           Descriptor carpeta, const QString &nombre);
