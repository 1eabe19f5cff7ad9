// SPDX-License-Identifier: MIT
#include "arbolHtml.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <csetjmp>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace {

// The parser goes through the open elements at every tag, so that the time that a page needs grows
// with the square of its depth. Real pages stay far below; elements that are never closed count.
constexpr std::size_t abiertosMaximos = 20'000;

// What else grows so (a hundred thousand attributes of one element, compared each with each) is
// left when it has taken this long; real pages take milliseconds.
constexpr auto tiempoMaximo = std::chrono::seconds(10);
constexpr unsigned entreMiradas = 256; // pieces of memory, from one look at the clock to the next

constexpr std::size_t memoriaBase = 64UL * 1024 * 1024;
constexpr std::size_t memoriaPorByte = 24;

// Memory that is only handed out. A thread keeps its first piece for the next page.
class Almacen {
public:
    void empezar(std::size_t maximo)
    {
        m_quedan = maximo;
        m_pedazos.resize(std::min<std::size_t>(m_pedazos.size(), 1));
        m_usado = 0;
        m_veces = 0;
        m_fin = std::chrono::steady_clock::now() + tiempoMaximo;
    }

    // Null when there is no more, or it has taken too long.
    void *tomar(std::size_t largo) noexcept
    {
        if (++m_veces % entreMiradas == 0 && std::chrono::steady_clock::now() > m_fin)
            return nullptr;
        constexpr std::size_t alineado = alignof(std::max_align_t);
        largo = (largo + alineado - 1) / alineado * alineado;
        if (largo > m_quedan)
            return nullptr;
        m_quedan -= largo;
        if (m_pedazos.empty() || m_usado + largo > m_pedazos.back().largo) {
            if (!agregar(std::max(largo, pedazo)))
                return nullptr;
        }
        void *lugar = m_pedazos.back().bytes.get() + m_usado;
        m_usado += largo;
        return lugar;
    }

    std::jmp_buf salida{};

private:
    static constexpr std::size_t pedazo = 512UL * 1024;

    struct Liberar {
        void operator()(char *bytes) const { std::free(bytes); } // NOLINT
    };
    struct Pedazo {
        std::unique_ptr<char[], Liberar> bytes;
        std::size_t largo = 0;
    };

    bool agregar(std::size_t largo) noexcept
    {
        auto *bytes = static_cast<char *>(std::malloc(largo)); // NOLINT
        if (bytes == nullptr)
            return false;
        m_pedazos.push_back({std::unique_ptr<char[], Liberar>(bytes), largo});
        m_usado = 0;
        return true;
    }

    std::vector<Pedazo> m_pedazos;
    std::size_t m_usado = 0;
    std::size_t m_quedan = 0;
    unsigned m_veces = 0;
    std::chrono::steady_clock::time_point m_fin;
};

void *tomar(void *almacen, std::size_t largo)
{
    auto *propio = static_cast<Almacen *>(almacen);
    void *lugar = propio->tomar(largo);
    // The parser does not ask whether it got anything; it is left here for good. Nothing of its own
    // stands outside the store.
    if (lugar == nullptr)
        std::longjmp(propio->salida, 1); // NOLINT
    return lugar;
}

void soltar(void *, void *) {}

bool esLetra(char c)
{
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

// Elements that are closed as they are opened, or by the next one of their kind.
bool seCierraSolo(std::string_view nombre)
{
    constexpr std::array<std::string_view, 22> solos = {
        "area", "base", "br", "col", "embed", "hr", "img", "input", "link",  "meta",   "param",
        "p",    "li",   "dt", "dd",  "td",    "th", "tr",  "tbody", "thead", "option", "wbr"};
    return std::find(solos.begin(), solos.end(), nombre) != solos.end();
}

// A glance over the page before the parser gets it: how many elements stand open at once.
class Vistazo {
public:
    explicit Vistazo(const QByteArray &pagina)
        : m_pagina(pagina.constData(), static_cast<std::size_t>(pagina.size()))
    {
    }

    bool demasiado()
    {
        for (std::size_t i = m_pagina.find('<'); i < m_pagina.size();
             i = m_pagina.find('<', i + 1)) {
            if (etiqueta(i + 1))
                return true;
        }
        return false;
    }

private:
    bool etiqueta(std::size_t i)
    {
        if (i < m_pagina.size() && m_pagina[i] == '/') {
            if (m_abiertos > 0 && !seCierraSolo(nombre(i + 1)))
                --m_abiertos;
            return false;
        }
        if (i >= m_pagina.size() || !esLetra(m_pagina[i]))
            return false;
        return !seCierraSolo(nombre(i)) && ++m_abiertos > abiertosMaximos;
    }

    std::string_view nombre(std::size_t i)
    {
        m_nombre.clear();
        for (; i < m_pagina.size() && m_nombre.size() < 8
               && std::isalnum(static_cast<unsigned char>(m_pagina[i])) != 0;
             ++i)
            m_nombre += static_cast<char>(std::tolower(static_cast<unsigned char>(m_pagina[i])));
        return m_nombre;
    }

    std::string_view m_pagina;
    std::size_t m_abiertos = 0;
    std::string m_nombre;
};

Almacen &almacenDelHilo()
{
    thread_local Almacen almacen;
    return almacen;
}

// Null when the parser ran out of its memory. Nothing that needs a destructor stands here: the way
// out of the parser leads through.
const GumboNode *analizar(Almacen &almacen, const char *texto, std::size_t largo)
{
    GumboOptions opciones = kGumboDefaultOptions;
    opciones.allocator = tomar;
    opciones.deallocator = soltar;
    opciones.userdata = &almacen;
    opciones.max_errors = 0;
    if (setjmp(almacen.salida) != 0) // NOLINT(cert-err52-cpp)
        return nullptr;
    const GumboOutput *salida = gumbo_parse_with_options(&opciones, texto, largo);
    return salida->root;
}

} // namespace

ArbolHtml::ArbolHtml(const QByteArray &utf8)
{
    if (Vistazo(utf8).demasiado())
        return;
    Almacen &almacen = almacenDelHilo();
    almacen.empezar(memoriaBase + memoriaPorByte * static_cast<std::size_t>(utf8.size()));
    m_raiz = analizar(almacen, utf8.constData(), static_cast<std::size_t>(utf8.size()));
}

const GumboNode *Paseo::siguiente()
{
    const GumboNode *nodo = nullptr;
    if (m_raiz != nullptr) {
        nodo = std::exchange(m_raiz, nullptr);
    } else {
        while (!m_camino.empty() && m_camino.back().hijo == m_camino.back().hijos->length)
            m_camino.pop_back();
        if (m_camino.empty())
            return nullptr;
        Paso &paso = m_camino.back();
        nodo = static_cast<const GumboNode *>(paso.hijos->data[paso.hijo++]);
    }
    const bool conHijos = nodo->type == GUMBO_NODE_ELEMENT || nodo->type == GUMBO_NODE_TEMPLATE;
    if (conHijos && nodo->v.element.children.length > 0)
        m_camino.push_back({&nodo->v.element.children, 0});
    return nodo;
}
