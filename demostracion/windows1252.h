// SPDX-License-Identifier: MIT
// Text of the service's pages to and from the bytes of Windows-1252.
#pragma once

#include <QByteArray>
#include <QString>

namespace demo {

// A character that the code page lacks becomes '?'. The five bytes that it leaves undefined
// stand for the control characters of the same number, both ways.
QByteArray aWindows1252(const QString &texto);
QString deWindows1252(const QByteArray &bytes);

} // namespace demo
