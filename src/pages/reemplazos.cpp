// SPDX-License-Identifier: MIT
#include "pages/reemplazos.h"

QString localizar(QString pagina, std::span<const Reemplazo> filas, const Valores &valores)
{
    for (const Reemplazo &fila : filas) {
        const QString buscar = completar(fila.buscar, valores);
        const QString poner = completar(fila.poner, valores);
        if (fila.cuantos == Reemplazo::Todos) {
            pagina.replace(buscar, poner, fila.letras);
            continue;
        }
        const qsizetype primero = pagina.indexOf(buscar, 0, fila.letras);
        if (primero >= 0)
            pagina.replace(primero, buscar.size(), poner);
    }
    return pagina;
}
