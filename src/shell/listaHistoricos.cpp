// SPDX-License-Identifier: MIT
#include "listaHistoricos.h"

using namespace Qt::StringLiterals;

QString portadaDe(const QString &historico)
{
    return historico + u"/index.html"_s;
}
