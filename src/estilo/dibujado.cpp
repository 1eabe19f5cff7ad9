// SPDX-License-Identifier: MIT
#include "dibujado.h"

#include <QFile>

using namespace Qt::StringLiterals;

QImage dibujado::de(const QString &nombre, int lado)
{
    QFile bytes(u"%1-%2x%2.argb"_s.arg(nombre).arg(lado));
    if (!bytes.open(QIODevice::ReadOnly))
        return {};
    QImage imagen(lado, lado, QImage::Format_ARGB32_Premultiplied);
    const bool entera = bytes.read(reinterpret_cast<char *>(imagen.bits()), imagen.sizeInBytes())
                        == imagen.sizeInBytes();
    return entera ? imagen : QImage();
}
