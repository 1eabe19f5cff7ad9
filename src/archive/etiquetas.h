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

// The distinct texts in the order of their first occurrence, without regard to letter case.
QStringList distintas(const QStringList &textos);

} // namespace etiquetas
