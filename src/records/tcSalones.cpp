// SPDX-License-Identifier: MIT
#include "records/tcSalones.h"
#include "records/matriz.h"

using namespace Qt::StringLiterals;

tcSalones::Referencia tcSalones::Add(const QString &id, const QString &salon, const QString &sKey)
{
    return agregar({.id = id, .salon = salon}, sKey);
}

void tcSalones::Fcargar(const QString &rta)
{
    for (const QStringView fila : matriz::filas(rta)) {
        if (fila.isEmpty())
            continue;
        const QString clave = matriz::identificador(fila);
        const QString salon = matriz::campo(fila, 1);
        // The line shows the identifier as it came, line breaks included.
        Q_EMIT
        nuevaLinea(matriz::campo(fila, 0) + u"   : "_s + salon);
        Add(clave, salon, clave);
    }
}

tcLista::Elemento tcSalones::elemento(int posicion) const
{
    const auto registro = Item(posicion);
    return registro ? Elemento{.id = registro->id, .nombre = registro->salon} : Elemento{};
}
