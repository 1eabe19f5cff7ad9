// SPDX-License-Identifier: MIT
#include "enMarcha.h"

#include <QFile>

using namespace Qt::StringLiterals;

// The platform plugin of windows without a screen, which the tests' environment names, is loaded.
bool enMarcha(qint64 pid)
{
    QFile mapas(u"/proc/%1/maps"_s.arg(pid));
    return mapas.open(QIODevice::ReadOnly) && mapas.readAll().contains("libqoffscreen.so");
}
