// SPDX-License-Identifier: MIT
#include "memoriaMayor.h"

#include <QFile>

using namespace Qt::StringLiterals;

qint64 memoriaMayor()
{
    QFile estado(u"/proc/self/status"_s);
    if (!estado.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &linea : estado.readAll().split('\n')) {
        if (linea.startsWith("VmHWM:"))
            return linea.mid(6).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return -1;
}

bool crecerEsCopiar()
{
    return false;
}
