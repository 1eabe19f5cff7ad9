#include "records/matriz.h"
#include "service/limpieza.h"

namespace matriz {

QStringList filas(const QString &rta)
{
    return rta.isEmpty() ? QStringList() : rta.split(QChar(u'\u00AE'));
}

QStringList campos(const QString &fila, const QString &separador)
{
    return fila.split(separador);
}

QList<QStringList> registros(const QString &rta)
{
    QList<QStringList> resultado;
    const QStringList todas = filas(rta);
    for (const QString &fila : todas) {
        if (!fila.isEmpty())
            resultado.append(campos(fila));
    }
    return resultado;
}

QString identificador(const QStringList &campos)
{
    return sinSaltos(campos.value(0));
}

} // namespace matriz
