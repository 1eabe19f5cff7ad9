// SPDX-License-Identifier: MIT
// Texts with named places, from which the tables build addresses and paths:
// "{base}/salones/{colegio}/2010/boletin/{id}". A table is constant data: a place that is not one
// of these does not compile, and one that has no value when its text is completed is an error of
// the program, which the first test of its row shows.
#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <cstddef>
#include <optional>

enum class Lugar {
    Base,       // scheme and host of the service
    Colegio,    // the session's school
    Anio,       // the session's year
    Raiz,       // the archive root
    Archivo,    // the archive folder, without a separator at its end
    Recortado,  // the same with the session's values trimmed of blanks
    Documentos, // its document folder, with one
    Imagenes,   // its image folder, with one
    Salida,     // the row's own folder, with one
    Tipo,       // the row's document kind
    Id,         // the record's id, the first field of a print job's row
    Periodo,    // the period of a report card
    Azar,       // a print job's random number
    Foto,       // the address of a student's photo
};

namespace lugares {

inline constexpr std::array<QStringView, 14> nombres = {
    u"base",     u"colegio", u"anio", u"raiz", u"archivo", u"recortado", u"documentos",
    u"imagenes", u"salida",  u"tipo", u"id",   u"periodo", u"azar",      u"foto"};

constexpr std::optional<Lugar> deNombre(QStringView nombre)
{
    for (std::size_t i = 0; i < nombres.size(); ++i) {
        if (std::u16string_view(nombres[i].utf16(), static_cast<std::size_t>(nombres[i].size()))
            == std::u16string_view(nombre.utf16(), static_cast<std::size_t>(nombre.size())))
            return static_cast<Lugar>(i);
    }
    return std::nullopt;
}

} // namespace lugares

// One such text: a view of a literal, which lives as long as the program.
class Plantilla {
public:
    constexpr Plantilla() = default;

    template <std::size_t N>
    consteval Plantilla(const char16_t (&texto)[N]) : m_texto(texto, N - 1)
    {
        std::size_t abre = N;
        for (std::size_t i = 0; i < N; ++i) {
            if (texto[i] == u'{')
                abre = i + 1;
            else if (texto[i] == u'}'
                     && (abre > i
                         || !lugares::deNombre(
                             QStringView(texto + abre, static_cast<qsizetype>(i - abre)))))
                throw "a brace without its pair, or a place of no known name";
            else if (texto[i] == u'}')
                abre = N;
        }
        if (abre != N)
            throw "a place without its end";
    }

    constexpr QStringView texto() const { return m_texto; }

private:
    QStringView m_texto = u"";
};

// What the places stand for.
class Valores {
public:
    void poner(Lugar lugar, const QString &valor) { en(lugar) = valor; }
    // The place must have a value.
    QString valor(Lugar lugar) const;

private:
    std::optional<QString> &en(Lugar lugar) { return m_valores[static_cast<std::size_t>(lugar)]; }

    std::array<std::optional<QString>, lugares::nombres.size()> m_valores;
};

// The text with every place filled in, all of which must have a value. Each place is read once,
// so that braces inside a value stay what they are.
QString completar(const Plantilla &plantilla, const Valores &valores);
