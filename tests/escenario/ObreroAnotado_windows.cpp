// SPDX-License-Identifier: MIT
// The program that pages are printed with here, once for each.
#include "escenario/ObreroAnotado.h"

#include "escenario/ProgramaDePaginas_windows.h"

#include <QDir>
#include <QSet>

using namespace Qt::StringLiterals;

class ObreroAnotado::Interno {
public:
    ProgramaDePaginas programa{u"print"_s};
};

ObreroAnotado::ObreroAnotado() : d(std::make_unique<Interno>()) {}

ObreroAnotado::~ObreroAnotado() = default;

bool ObreroAnotado::arrancado() const
{
    return ProgramaDePaginas::corren() > 0 || !d->programa.lineas().isEmpty();
}

bool ObreroAnotado::terminado() const
{
    return ProgramaDePaginas::corren() == 0;
}

bool ObreroAnotado::lasVecesDebidas() const
{
    const QStringList todos = documentos();
    return todos.size() == QSet<QString>(todos.begin(), todos.end()).size();
}

QStringList ObreroAnotado::documentos() const
{
    QStringList todos;
    const QStringList lineas = d->programa.lineas();
    for (const QString &linea : lineas)
        todos.append(QDir::fromNativeSeparators(linea.section(u'\t', 2, 2)));
    return todos;
}
