// SPDX-License-Identifier: MIT
// "parvanel-print", found on PATH, which notes the lines it is given.
#include "escenario/ObreroAnotado.h"

#include "escenario/ProgramasEnPath.h"

using namespace Qt::StringLiterals;

class ObreroAnotado::Interno {
public:
    Interno()
    {
        programas.poner(u"parvanel-print"_s, "#!/bin/sh\necho >> '" + nota(u"arranques"_s)
                                                 + "'\ncat >> '" + nota(u"lineas"_s)
                                                 + "'\necho >> '" + nota(u"fin"_s) + "'\n");
    }

    QByteArray nota(const QString &nombre) const { return programas.ruta(nombre).toUtf8(); }

    ProgramasEnPath programas;
};

ObreroAnotado::ObreroAnotado() : d(std::make_unique<Interno>()) {}

ObreroAnotado::~ObreroAnotado() = default;

bool ObreroAnotado::arrancado() const
{
    return !d->programas.leer(u"arranques"_s).isEmpty();
}

bool ObreroAnotado::terminado() const
{
    return !d->programas.leer(u"fin"_s).isEmpty();
}

bool ObreroAnotado::lasVecesDebidas() const
{
    return d->programas.leer(u"arranques"_s).size() == 1;
}

QStringList ObreroAnotado::documentos() const
{
    return QString::fromUtf8(d->programas.leer(u"lineas"_s)).split(u'\n', Qt::SkipEmptyParts);
}
