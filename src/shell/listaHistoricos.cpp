// SPDX-License-Identifier: MIT
#include "listaHistoricos.h"

QString portadaDe(const QString &historico)
{
    return historico + QStringLiteral("/index.html");
}
