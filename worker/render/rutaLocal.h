// SPDX-License-Identifier: MIT
// Names of local files as pages write them. Pages of the archive come from a system that does not
// regard letter case and separates folders with backslashes.
#pragma once

#include <QString>
#include <QUrl>

namespace rutaLocal {

// The existing file that an absolute path means: the path itself if it exists; else each
// component in turn, by exact name first and by any letter case after that, with backslashes as
// separators too. Empty when there is none.
QString existente(const QString &ruta);

// What a request for this address should fetch instead: the address of the existing file. Empty
// when the address names no regular file below `raiz` (a missing one, a folder, a device, one that
// lies elsewhere once all links are followed; the root itself may be a link). `raiz` is an absolute
// path; below an empty or missing one there is nothing.
QUrl destino(const QUrl &pedido, const QString &raiz);

} // namespace rutaLocal
