// SPDX-License-Identifier: MIT
#include "platform/codepage.h"

#include <QByteArrayView>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cstdint>
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

constexpr bool enBloque(unsigned valor)
{
    return valor >= inicioBloque && valor < finBloque;
}

std::optional<char> byteDe(char16_t c)
{
    if (c <= 0xFF && !enBloque(c))
        return static_cast<char>(c);
    for (unsigned i = 0; i < bloqueAlto.size(); ++i) {
        if (bloqueAlto[i] == c)
            return static_cast<char>(inicioBloque + i);
    }
    return std::nullopt;
}

// Hardly any character needs more than its number copied, so that a text is taken in stretches: one
// without any that does is copied as it stands. These loops have no way out and reckon in the width
// of what they read, and so the compiler does many characters at a time.
constexpr qsizetype tramo = 64;

bool hayDeBloque(QByteArrayView bytes)
{
    std::uint8_t menor = 0xFF; // 0 once a byte of the block has been met
    for (const char byte : bytes)
        menor = std::min(menor, static_cast<std::uint8_t>((byte ^ inicioBloque) & 0xE0));
    return menor == 0;
}

bool soloNumeros(QStringView texto)
{
    std::int16_t menor = 0x7FFF; // 0 once a character of the block has been met
    std::uint16_t alto = 0;
    for (const QChar c : texto) {
        menor = std::min(menor, static_cast<std::int16_t>((c.unicode() ^ inicioBloque) & 0xFFE0));
        alto |= c.unicode();
    }
    return menor > 0 && alto <= 0xFF;
}

char *copiarNumeros(QStringView texto, char *salida)
{
    for (qsizetype i = 0; i < texto.size(); ++i)
        salida[i] = static_cast<char>(texto[i].unicode());
    return salida + texto.size();
}

char *buscarBytes(QStringView texto, char *salida)
{
    for (const QChar c : texto) {
        // The second half of a character outside the basic plane: its first half has already
        // been written as "?".
        if (!c.isLowSurrogate())
            *salida++ = byteDe(c.unicode()).value_or('?');
    }
    return salida;
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
    QString texto = QString::fromLatin1(bytes);
    QChar *salida = texto.data();
    for (qsizetype desde = 0; desde < bytes.size(); desde += tramo) {
        const auto parte =
            QByteArrayView(bytes).sliced(desde, std::min(tramo, bytes.size() - desde));
        if (!hayDeBloque(parte))
            continue;
        for (qsizetype i = 0; i < parte.size(); ++i) {
            const auto valor = static_cast<unsigned char>(parte[i]);
            if (enBloque(valor))
                salida[desde + i] = QChar(bloqueAlto[valor - inicioBloque]);
        }
    }
    return texto;
}

QByteArray aBytes(const QString &texto)
{
    QByteArray bytes(texto.size(), Qt::Uninitialized);
    char *salida = bytes.data();
    for (qsizetype desde = 0; desde < texto.size(); desde += tramo) {
        const auto parte = QStringView(texto).sliced(desde, std::min(tramo, texto.size() - desde));
        salida = soloNumeros(parte) ? copiarNumeros(parte, salida) : buscarBytes(parte, salida);
    }
    bytes.truncate(salida - bytes.constData());
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
