// SPDX-License-Identifier: MIT
// Looks for a text in a page as the service sends it, in bytes of the code page. A page may be
// long, and is looked through where it stands: no byte of it is copied or turned into a character.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <cstdint>

class Buscador {
public:
    // Without regard to letter case the same letters are equal as are in texts: each has at the
    // most one other form in this code page.
    Buscador(const QString &buscado, Qt::CaseSensitivity letras);

    qsizetype largo() const { return m_buscado.size(); }

    // The first place at or after `desde`; -1 when there is none. An empty text, or one with a
    // character that no byte stands for, is found nowhere.
    qsizetype hallar(QByteArrayView pagina, qsizetype desde) const;

private:
    // For each byte the one that stands for all of its letter's forms.
    using Formas = std::array<std::uint8_t, 256>;

    static const Formas &formas(Qt::CaseSensitivity letras);
    bool tomarTexto(const QString &buscado, Qt::CaseSensitivity letras);
    void medirSaltos();
    bool estaEn(const char *donde) const;

    const Formas &m_formas;
    QByteArray m_buscado; // in those forms; empty when there is nothing that could be found
    // By the byte that stands under the text's last one: how far the text must move at least for
    // that byte to fit; 0 when it fits where it is.
    std::array<std::uint8_t, 256> m_saltos{};
    qsizetype m_trasUltima = 1; // the same from a place where the last byte did fit
};
