// SPDX-License-Identifier: MIT
#include "temporales.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString temporales::nombre(qint64 proceso, unsigned numero)
{
    return u".descarga-%1-%2"_s.arg(proceso).arg(numero);
}

std::optional<qint64> temporales::procesoDe(const QString &nombre)
{
    static const QRegularExpression patron(u"\\A\\.descarga-([1-9][0-9]{0,9})-[0-9]+\\z"_s);
    if (!nombre.startsWith(u".descarga-"_s))
        return std::nullopt;
    const QRegularExpressionMatch hallado = patron.match(nombre);
    return hallado.hasMatch() ? std::optional(hallado.captured(1).toLongLong()) : std::nullopt;
}

bool temporales::puedeSerElEscritor(const Proceso &proceso, qint64 escrito)
{
    constexpr qint64 holgura = 2; // seconds that the clocks' roundings may come to
    return proceso.vive && (!proceso.comienzo || *proceso.comienzo <= escrito + holgura);
}
