// SPDX-License-Identifier: MIT
#include "printing/numeroSalon.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

double numeroSalon(const QString &linea)
{
    static const QRegularExpression numero(
        u"^ *([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"_s);
    return numero.match(linea).captured(1).toDouble();
}

QString enDecimal(double numero)
{
    return QString::number(numero, 'f', QLocale::FloatingPointShortest);
}
