// SPDX-License-Identifier: MIT
// The program that pages are opened with here.
#include "escenario/AbridorAnotado.h"

#include "escenario/ProgramaDePaginas_windows.h"

#include <QDir>

using namespace Qt::StringLiterals;

class AbridorAnotado::Interno {
public:
    ProgramaDePaginas programa{u"open"_s};
};

AbridorAnotado::AbridorAnotado() : d(std::make_unique<Interno>()) {}

AbridorAnotado::~AbridorAnotado() = default;

QStringList AbridorAnotado::abiertos() const
{
    constexpr qsizetype partes = 4; // moment, verb, document, folder
    QStringList todos;
    const QStringList lineas = d->programa.lineas();
    for (const QString &linea : lineas) {
        const QStringList dicho = linea.split(u'\t');
        const bool solo = dicho.size() == partes && dicho[1] == u"open"_s;
        todos.append(solo ? QDir::fromNativeSeparators(dicho[2]) : linea);
    }
    return todos;
}
