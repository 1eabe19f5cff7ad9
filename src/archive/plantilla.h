// Texts with named places, from which the tables build addresses and paths.
#pragma once

#include <QHash>
#include <QString>

using Valores = QHash<QString, QString>;

// The text with every place "{name}" filled in. Each place is read once, so that braces inside
// a value stay what they are, and a place without a value stays as it stands.
QString completar(const QString &plantilla, const Valores &valores);
