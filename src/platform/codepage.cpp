// SPDX-License-Identifier: MIT
#include "platform/codepage.h"

#include <array>
#include <optional>

namespace codepage {
namespace {

// Bytes 0x80 to 0x9F. All others have the number of their character.
constexpr std::array<char16_t, 32> bloqueAlto = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned inicioBloque = 0x80;
constexpr unsigned finBloque = 0xA0;

std::optional<char> byteDe(char16_t c)
{
    if (c < inicioBloque || (c >= finBloque && c <= 0xFF))
        return static_cast<char>(c);
    for (unsigned i = 0; i < bloqueAlto.size(); ++i) {
        if (bloqueAlto[i] == c)
            return static_cast<char>(inicioBloque + i);
    }
    return std::nullopt;
}

template <typename Cambio>
QString cambiarLetras(QString texto, Cambio cambio)
{
    // Most identifiers have nothing to change, and then the text stays the caller's own.
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto.at(i);
        const QChar otra = cambio(c);
        if (otra != c && byteDe(otra.unicode()))
            texto[i] = otra;
    }
    return texto;
}

} // namespace

QString aTexto(const QByteArray &bytes)
{
    QString texto(bytes.size(), Qt::Uninitialized);
    QChar *salida = texto.data();
    for (const char byte : bytes) {
        const auto valor = static_cast<unsigned char>(byte);
        const bool enBloque = valor >= inicioBloque && valor < finBloque;
        *salida++ = QChar(enBloque ? bloqueAlto[valor - inicioBloque] : char16_t(valor));
    }
    return texto;
}

QByteArray aBytes(const QString &texto)
{
    QByteArray bytes;
    bytes.reserve(texto.size());
    for (const QChar c : texto) {
        // The second half of a character outside the basic plane: its first half has already
        // been written as "?".
        if (c.isLowSurrogate())
            continue;
        bytes.append(byteDe(c.unicode()).value_or('?'));
    }
    return bytes;
}

QString enMayusculas(const QString &texto)
{
    return cambiarLetras(texto, [](QChar c) { return c.toUpper(); });
}

QString enMinusculas(const QString &texto)
{
    return cambiarLetras(texto, [](QChar c) { return c.toLower(); });
}

} // namespace codepage
