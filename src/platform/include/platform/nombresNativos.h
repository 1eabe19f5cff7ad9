// SPDX-License-Identifier: MIT
// Names and paths of a disk that regards letter case, read as a system that does not would: plain
// functions of text. The print worker's renderer follows the same rules as drive C: what a page
// names is for the one what it is for the other.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace nombresNativos {

// What all spellings of a name that differ in letter case only have in common, letter by letter
// ("ß" is no "SS").
QString plegado(const QString &nombre);

// Of the names that stand in a folder those that `pedido` may mean, the best first: the exact
// spelling, then the others by name. The first one that is still there is meant.
QStringList candidatos(const QStringList &hay, const QString &pedido);

// What a link of the name `pedido` beside the folder `existente` must hold, so that browsers, which
// do regard letter case, find the folder under either; nothing when they find it as it is. It is
// the neighbour's bare name: an archive may be moved to another place.
std::optional<QString> enlacePara(const QString &pedido, const QString &existente);

// Whether a link is only another spelling of its neighbour, as one made so: it never stands for the
// name, and no listing shows it. `enlace` is the link's own path and `destino` the one that it
// holds, both from the same place on (two bare names, say).
bool esOtraEscritura(const QString &enlace, const QString &destino);

// The names that lead from `raiz` to `real`, none for the root itself; nothing when `real` is not
// below it. Both are absolute paths with all links resolved; an empty one is nowhere.
std::optional<QStringList> desdeRaiz(const QString &raiz, const QString &real);

} // namespace nombresNativos
