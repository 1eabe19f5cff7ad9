// SPDX-License-Identifier: MIT
// Label images: texts that the service draws as images, stored under their text, without an
// extension, in the archive's label folder. The method that fetches them is
// tcMaterias::downLabels.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace etiquetas {

// The text drawn for a subject or an area: a blank for every "-".
QString textoDe(const QString &nombre);

// The address of a label of that text. A subject's text goes into it as it stands; of an area's
// label every blank of the whole address is written as "%20".
QString direccionDeMateria(const QString &ServiceBase, const QString &texto);
QString direccionDeArea(const QString &ServiceBase, const QString &texto);

// The distinct texts in the order of their first occurrence, without regard to letter case.
QStringList distintas(const QStringList &textos);

} // namespace etiquetas
