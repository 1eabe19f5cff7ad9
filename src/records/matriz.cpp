// SPDX-License-Identifier: MIT
#include "records/matriz.h"
#include "service/limpieza.h"

namespace matriz {

qsizetype cuantasFilas(QStringView rta)
{
    return rta.isEmpty() ? 0 : rta.count(entreFilas) + 1;
}

QString campo(QStringView fila, qsizetype indice, QStringView separador)
{
    for (const QStringView uno : qTokenize(fila, separador)) {
        if (indice-- == 0)
            return uno.toString();
    }
    return QString();
}

QString identificador(QStringView fila)
{
    return sinSaltos(campo(fila, 0));
}

} // namespace matriz
