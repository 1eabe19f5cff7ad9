// SPDX-License-Identifier: MIT
#include "records/tcMaterias.h"
#include "records/matriz.h"
#include "service/archivos.h"

tcMaterias::Referencia tcMaterias::Add(const QString &id, const QString &nombre,
                                       const QString &area, const QString &sKey)
{
    return agregar({.id = id, .nombre = nombre, .area = area}, sKey);
}

void tcMaterias::Fcargar(const QString &rta)
{
    for (const QStringView fila : matriz::filas(rta)) {
        if (fila.isEmpty())
            continue;
        const QString clave = matriz::identificador(fila);
        Add(clave, matriz::campo(fila, 1), matriz::campo(fila, 2), clave);
        ceder();
    }
}

tcLista::Elemento tcMaterias::elemento(int posicion) const
{
    const auto registro = Item(posicion);
    return registro ? Elemento{.id = registro->id, .nombre = registro->nombre} : Elemento{};
}
