// SPDX-License-Identifier: MIT
#include "Buscador.h"
#include "platform/codepage.h"

#include <algorithm>

namespace {

constexpr std::size_t cuantosBytes = 256;

std::uint8_t numero(char byte)
{
    return static_cast<std::uint8_t>(byte);
}

// The character of each byte.
QString caracteres()
{
    QByteArray todos;
    for (std::size_t i = 0; i < cuantosBytes; ++i)
        todos.append(static_cast<char>(i));
    return codepage::aTexto(todos);
}

QChar enForma(QChar c, Qt::CaseSensitivity letras)
{
    return letras == Qt::CaseInsensitive ? c.toCaseFolded() : c;
}

QString enForma(QString texto, Qt::CaseSensitivity letras)
{
    for (QChar &c : texto)
        c = enForma(c, letras);
    return texto;
}

// The characters of all bytes, as texts compare them.
const QString &comparados(Qt::CaseSensitivity letras)
{
    static const QString exactos = enForma(caracteres(), Qt::CaseSensitive);
    static const QString plegados = enForma(caracteres(), Qt::CaseInsensitive);
    return letras == Qt::CaseSensitive ? exactos : plegados;
}

} // namespace

const Buscador::Formas &Buscador::formas(Qt::CaseSensitivity letras)
{
    const auto hacer = [](Qt::CaseSensitivity como) {
        const QString &todos = comparados(como);
        Formas formas{};
        for (qsizetype i = 0; i < todos.size(); ++i)
            formas[static_cast<std::size_t>(i)] =
                static_cast<std::uint8_t>(todos.indexOf(todos[i]));
        return formas;
    };
    static const Formas exactas = hacer(Qt::CaseSensitive);
    static const Formas plegadas = hacer(Qt::CaseInsensitive);
    return letras == Qt::CaseSensitive ? exactas : plegadas;
}

Buscador::Buscador(const QString &buscado, Qt::CaseSensitivity letras) : m_formas(formas(letras))
{
    if (tomarTexto(buscado, letras))
        medirSaltos();
    else
        m_buscado.clear();
}

// False when it cannot be found anywhere.
bool Buscador::tomarTexto(const QString &buscado, Qt::CaseSensitivity letras)
{
    const QString &todos = comparados(letras);
    m_buscado.resize(buscado.size());
    char *forma = m_buscado.data();
    for (const QChar buscada : buscado) {
        const QChar c = enForma(buscada, letras);
        // Most characters have the number of their byte.
        const bool directo = c.unicode() < cuantosBytes && todos[c.unicode()] == c;
        const qsizetype byte = directo ? c.unicode() : todos.indexOf(c);
        if (byte < 0)
            return false;
        *forma++ = static_cast<char>(m_formas[static_cast<std::size_t>(byte)]);
    }
    return !m_buscado.isEmpty();
}

void Buscador::medirSaltos()
{
    constexpr qsizetype maximo = 255;
    const qsizetype ultima = m_buscado.size() - 1;
    Formas deForma{};
    deForma.fill(static_cast<std::uint8_t>(std::min(maximo, m_buscado.size())));
    for (qsizetype i = 0; i < ultima; ++i)
        deForma[numero(m_buscado[i])] = static_cast<std::uint8_t>(std::min(maximo, ultima - i));
    m_trasUltima = deForma[numero(m_buscado[ultima])];
    deForma[numero(m_buscado[ultima])] = 0;
    for (std::size_t byte = 0; byte < cuantosBytes; ++byte)
        m_saltos[byte] = deForma[m_formas[byte]];
}

qsizetype Buscador::hallar(QByteArrayView pagina, qsizetype desde) const
{
    if (m_buscado.isEmpty())
        return -1;
    const qsizetype ultima = m_buscado.size() - 1;
    const char *bytes = pagina.data();
    qsizetype fin = desde + ultima;
    while (fin < pagina.size()) {
        const std::uint8_t salto = m_saltos[numero(bytes[fin])];
        if (salto == 0 && estaEn(bytes + fin - ultima))
            return fin - ultima;
        fin += salto > 0 ? salto : m_trasUltima;
    }
    return -1;
}

bool Buscador::estaEn(const char *donde) const
{
    return std::equal(m_buscado.begin(), m_buscado.end(), donde, [this](char buscado, char byte) {
        return numero(buscado) == m_formas[numero(byte)];
    });
}
