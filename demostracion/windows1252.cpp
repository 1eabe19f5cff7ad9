// SPDX-License-Identifier: MIT
#include "demostracion/windows1252.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<char16_t, 32> altos = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

QByteArray demo::aWindows1252(const QString &texto)
{
    QByteArray bytes;
    bytes.reserve(texto.size());
    for (const QChar letra : texto) {
        const char16_t c = letra.unicode();
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            bytes.append(static_cast<char>(c));
            continue;
        }
        const auto *const hallado = std::find(altos.begin(), altos.end(), c);
        bytes.append(hallado == altos.end() ? '?'
                                            : static_cast<char>(0x80 + (hallado - altos.begin())));
    }
    return bytes;
}

QString demo::deWindows1252(const QByteArray &bytes)
{
    QString texto;
    texto.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        texto.append(b >= 0x80 && b < 0xA0 ? QChar(altos[b - 0x80U]) : QChar(char16_t{b}));
    }
    return texto;
}
