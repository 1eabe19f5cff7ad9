// SPDX-License-Identifier: MIT
#include "records/tcAlumnos.h"
#include "records/matriz.h"

tcAlumnos::Referencia tcAlumnos::Add(const QString &id, const QString &nombre, const QString &sKey)
{
    return agregar({.id = id, .nombre = nombre}, sKey);
}

void tcAlumnos::Fcargar(const QString &rta)
{
    for (const QStringView fila : matriz::filas(rta)) {
        if (fila.isEmpty())
            continue;
        const QString clave = matriz::identificador(fila);
        Add(clave, matriz::campo(fila, 1), clave);
    }
}

tcLista::Elemento tcAlumnos::elemento(int posicion) const
{
    const auto registro = Item(posicion);
    return registro ? Elemento{.id = registro->id, .nombre = registro->nombre} : Elemento{};
}
