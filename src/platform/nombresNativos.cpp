// SPDX-License-Identifier: MIT
#include "platform/nombresNativos.h"

#include <algorithm>

namespace nombresNativos {

QString plegado(const QString &nombre)
{
    return nombre.toCaseFolded();
}

QStringList candidatos(const QStringList &hay, const QString &pedido)
{
    const QString comun = plegado(pedido);
    QStringList hallados;
    for (const QString &nombre : hay) {
        if (plegado(nombre) == comun)
            hallados.append(nombre);
    }
    std::sort(hallados.begin(), hallados.end(), [&](const QString &uno, const QString &otro) {
        const bool exacto = uno == pedido;
        return exacto != (otro == pedido) ? exacto : uno < otro;
    });
    return hallados;
}

std::optional<QString> enlacePara(const QString &pedido, const QString &existente)
{
    return pedido == existente ? std::nullopt : std::optional(existente);
}

bool esOtraEscritura(const QString &enlace, const QString &destino)
{
    const qsizetype delEnlace = enlace.lastIndexOf(u'/') + 1;
    const qsizetype delDestino = destino.lastIndexOf(u'/') + 1;
    return enlace.left(delEnlace) == destino.left(delDestino)
           && plegado(enlace.mid(delEnlace)) == plegado(destino.mid(delDestino));
}

std::optional<QStringList> desdeRaiz(const QString &raiz, const QString &real)
{
    if (raiz.isEmpty() || (real != raiz && !real.startsWith(raiz + u'/')))
        return std::nullopt;
    return real.mid(raiz.size()).split(u'/', Qt::SkipEmptyParts);
}

} // namespace nombresNativos
