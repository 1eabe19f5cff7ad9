// SPDX-License-Identifier: MIT
// "xdg-open", found on PATH, which notes its arguments.
#include "escenario/AbridorAnotado.h"

#include "escenario/ProgramasEnPath.h"

using namespace Qt::StringLiterals;

class AbridorAnotado::Interno {
public:
    Interno()
    {
        programas.poner(u"xdg-open"_s, "#!/bin/sh\n[ $# = 1 ] || set -- \"$# arguments: $*\"\n"
                                       "printf '%s\\n' \"$1\" >> '"
                                           + programas.ruta(u"abiertos"_s).toUtf8() + "'\n");
    }

    ProgramasEnPath programas;
};

AbridorAnotado::AbridorAnotado() : d(std::make_unique<Interno>()) {}

AbridorAnotado::~AbridorAnotado() = default;

QStringList AbridorAnotado::abiertos() const
{
    return QString::fromUtf8(d->programas.leer(u"abiertos"_s)).split(u'\n', Qt::SkipEmptyParts);
}
