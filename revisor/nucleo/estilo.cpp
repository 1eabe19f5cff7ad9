// SPDX-License-Identifier: MIT
#include "estilo.h"

#include <QString>

#include <algorithm>
#include <cctype>

namespace {

bool esBlanco(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool esDeIdentificador(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || c == '-' || c == '_' || byte >= 0x80;
}

class Lector {
public:
    explicit Lector(std::string_view css) : m_css(css) {}

    std::vector<std::string> direcciones()
    {
        while (m_i < m_css.size())
            paso();
        return std::move(m_halladas);
    }

private:
    bool hay(std::size_t cuantos = 1) const { return m_i + cuantos <= m_css.size(); }

    bool esPalabra(std::string_view palabra) const
    {
        return m_css.size() - m_i >= palabra.size()
               && std::equal(palabra.begin(), palabra.end(), m_css.begin() + m_i,
                             [](char una, char otra) {
                                 return una == std::tolower(static_cast<unsigned char>(otra));
                             });
    }

    void paso()
    {
        const char c = m_css[m_i];
        if (c == '/' && hay(2) && m_css[m_i + 1] == '*') {
            const std::size_t fin = m_css.find("*/", m_i + 2);
            m_i = fin == std::string_view::npos ? m_css.size() : fin + 2;
        } else if (c == '"' || c == '\'') {
            [[maybe_unused]] const std::string texto = cadena(); // text, not an address
        } else if (esPalabra("url(")) {
            m_i += 4;
            direccion();
        } else if (esPalabra("@import")) {
            m_i += 7;
            pasarBlancos();
            if (hay() && (m_css[m_i] == '"' || m_css[m_i] == '\''))
                m_halladas.push_back(cadena());
        } else if (c == '\\') {
            m_i = std::min(m_i + 2, m_css.size());
        } else if (esDeIdentificador(c)) {
            pasarNombre();
        } else {
            ++m_i;
        }
    }

    // A name ends where url( might begin, only when the name is "url" itself.
    void pasarNombre()
    {
        while (hay() && esDeIdentificador(m_css[m_i]))
            ++m_i;
    }

    void pasarBlancos()
    {
        while (hay() && esBlanco(m_css[m_i]))
            ++m_i;
    }

    // After "url(".
    void direccion()
    {
        pasarBlancos();
        if (hay() && (m_css[m_i] == '"' || m_css[m_i] == '\'')) {
            m_halladas.push_back(cadena());
            return;
        }
        std::string hallada;
        while (hay() && m_css[m_i] != ')') {
            if (m_css[m_i] == '\\')
                escape(hallada);
            else
                hallada += m_css[m_i++];
        }
        while (!hallada.empty() && esBlanco(hallada.back()))
            hallada.pop_back();
        m_halladas.push_back(std::move(hallada));
    }

    // From its quote on; it ends at the line's end at the latest.
    std::string cadena()
    {
        const char comilla = m_css[m_i++];
        std::string hallada;
        while (hay() && m_css[m_i] != comilla && m_css[m_i] != '\n') {
            if (m_css[m_i] == '\\')
                escape(hallada);
            else
                hallada += m_css[m_i++];
        }
        if (hay())
            ++m_i;
        return hallada;
    }

    // A backslash and what it stands for: up to six hexadecimal digits and a blank, or itself.
    void escape(std::string &en)
    {
        ++m_i;
        char32_t numero = 0;
        int cifras = 0;
        while (hay() && cifras < 6 && std::isxdigit(static_cast<unsigned char>(m_css[m_i])) != 0) {
            const char c = m_css[m_i++];
            numero = numero * 16
                     + static_cast<char32_t>(c <= '9' ? c - '0' : (std::tolower(c) - 'a') + 10);
            ++cifras;
        }
        if (cifras > 0) {
            if (hay() && esBlanco(m_css[m_i]))
                ++m_i;
            if (numero == 0 || numero > 0x10FFFF)
                numero = QChar::ReplacementCharacter;
            en += QString::fromUcs4(&numero, 1).toStdString();
        } else if (hay()) {
            if (m_css[m_i] != '\n')
                en += m_css[m_i];
            ++m_i;
        }
    }

    std::string_view m_css;
    std::size_t m_i = 0;
    std::vector<std::string> m_halladas;
};

} // namespace

std::vector<std::string> direccionesDeEstilo(std::string_view css)
{
    return Lector(css).direcciones();
}
