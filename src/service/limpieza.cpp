// SPDX-License-Identifier: MIT
#include "service/limpieza.h"

QString sinSaltos(QString texto)
{
    return texto.remove(u'\r').remove(u'\n');
}

QString recortar(const QString &texto)
{
    qsizetype inicio = 0;
    qsizetype fin = texto.size();
    while (inicio < fin && texto[inicio] == u' ')
        ++inicio;
    while (fin > inicio && texto[fin - 1] == u' ')
        --fin;
    return texto.mid(inicio, fin - inicio);
}
