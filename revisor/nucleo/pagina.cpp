// SPDX-License-Identifier: MIT
#include "pagina.h"
#include "arbolHtml.h"
#include "estilo.h"
#include "platform/codepage.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <unordered_set>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t marcasMaximas = 512;
constexpr qsizetype rotuloMaximo = 120;
// A name stands at the beginning of its cell or link. Looking for one through a large page at each
// of its links would take as long as the page is large, times its links.
constexpr int pasosHastaElNombre = 256;

// Browsers look for the encoding in a page's first 1024 bytes.
bool dicenUtf8(const QByteArray &bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return true;
    const QByteArray inicio = bytes.left(1024).toLower();
    const qsizetype lugar = inicio.indexOf("charset=");
    if (lugar < 0)
        return false;
    QByteArray nombre = inicio.mid(lugar + 8, 8);
    nombre.replace('"', "").replace('\'', "");
    return nombre.trimmed().startsWith("utf-8") || nombre.trimmed().startsWith("utf8");
}

bool esAscii(const QByteArray &bytes)
{
    return std::none_of(bytes.begin(), bytes.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

QByteArray enUtf8(const QByteArray &bytes)
{
    return dicenUtf8(bytes) || esAscii(bytes) ? bytes : codepage::aTexto(bytes).toUtf8();
}

const char *atributo(const GumboElement &elemento, const char *nombre)
{
    const GumboAttribute *hallado = gumbo_get_attribute(&elemento.attributes, nombre);
    return hallado != nullptr ? hallado->value : nullptr;
}

std::string_view propio(const GumboElement &elemento)
{
    if (elemento.tag != GUMBO_TAG_UNKNOWN)
        return gumbo_normalized_tagname(elemento.tag);
    GumboStringPiece pieza = elemento.original_tag;
    gumbo_tag_from_original_text(&pieza);
    return {pieza.data, pieza.length};
}

std::uint32_t marca(std::string_view una, std::string_view otra, std::string_view tercera = {})
{
    std::uint32_t numero = 2166136261U;
    for (const std::string_view texto :
         {una, std::string_view("\0", 1), otra, std::string_view("\0", 1), tercera}) {
        for (const char c : texto)
            numero = (numero ^ static_cast<unsigned char>(c)) * 16777619U;
    }
    return numero;
}

bool conCifras(std::string_view texto)
{
    return std::any_of(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The texts below a node, in one line and no longer than a name is.
QString textoDe(const GumboNode *raiz)
{
    QString texto;
    Paseo paseo(raiz);
    const GumboNode *nodo = paseo.siguiente();
    for (int i = 0; nodo != nullptr && i < pasosHastaElNombre && texto.size() < rotuloMaximo;
         ++i, nodo = paseo.siguiente()) {
        if (nodo->type == GUMBO_NODE_TEXT || nodo->type == GUMBO_NODE_WHITESPACE)
            texto += QString::fromUtf8(nodo->v.text.text).left(rotuloMaximo);
        else if (!texto.isEmpty())
            texto += u' ';
    }
    return texto.simplified().left(rotuloMaximo);
}

// The first text below a node: of "<b>SEXTO A</b><small>32 estudiantes" the classroom's name.
QString primerTexto(const GumboNode *raiz)
{
    Paseo paseo(raiz);
    const GumboNode *nodo = paseo.siguiente();
    for (int i = 0; nodo != nullptr && i < pasosHastaElNombre; ++i, nodo = paseo.siguiente()) {
        if (nodo->type == GUMBO_NODE_TEXT) {
            const QString texto = QString::fromUtf8(nodo->v.text.text).simplified();
            if (!texto.isEmpty())
                return texto.left(rotuloMaximo);
        }
    }
    return {};
}

bool tieneAncla(const GumboNode *celda)
{
    Paseo paseo(celda);
    const GumboNode *nodo = paseo.siguiente();
    for (int i = 0; nodo != nullptr && i < pasosHastaElNombre; ++i, nodo = paseo.siguiente()) {
        if (nodo->type == GUMBO_NODE_ELEMENT && nodo->v.element.tag == GUMBO_TAG_A)
            return true;
    }
    return false;
}

// Of a table's row the longest text of letters that is no link itself.
QString nombreEnFila(const GumboNode *fila)
{
    QString nombre;
    const GumboVector &celdas = fila->v.element.children;
    for (unsigned i = 0; i < std::min(celdas.length, 16U); ++i) {
        const auto *celda = static_cast<const GumboNode *>(celdas.data[i]);
        if (celda->type != GUMBO_NODE_ELEMENT || tieneAncla(celda))
            continue;
        const QString texto = textoDe(celda);
        const bool conLetras =
            std::any_of(texto.begin(), texto.end(), [](QChar c) { return c.isLetter(); });
        if (conLetras && texto.size() > nombre.size())
            nombre = texto;
    }
    return nombre;
}

const GumboNode *filaDe(const GumboNode *nodo)
{
    constexpr int hastaLaFila = 8;
    for (int i = 0; nodo != nullptr && i < hastaLaFila; ++i, nodo = nodo->parent) {
        if (nodo->type == GUMBO_NODE_ELEMENT && nodo->v.element.tag == GUMBO_TAG_TR)
            return nodo;
    }
    return nullptr;
}

class Recorrido {
public:
    explicit Recorrido(PaginaLeida &pagina) : m_pagina(pagina) {}

    void recorrer(const GumboNode *raiz)
    {
        Paseo paseo(raiz);
        for (const GumboNode *nodo = paseo.siguiente(); nodo != nullptr; nodo = paseo.siguiente()) {
            if (nodo->type == GUMBO_NODE_ELEMENT || nodo->type == GUMBO_NODE_TEMPLATE)
                elemento(nodo);
        }
        auto &marcas = m_pagina.marcas;
        std::sort(marcas.begin(), marcas.end());
        marcas.erase(std::unique(marcas.begin(), marcas.end()), marcas.end());
        marcas.shrink_to_fit();
        ponerBase();
    }

private:
    void elemento(const GumboNode *nodo)
    {
        const GumboElement &e = nodo->v.element;
        // Those that the parser adds itself are no sign of a page.
        if (nodo->parse_flags == GUMBO_INSERTION_NORMAL)
            m_pagina.conElementos = true;
        titulos(nodo);
        enlaces(nodo);
        marcar(nodo, e);
        if (e.tag == GUMBO_TAG_STYLE) {
            for (unsigned i = 0; i < e.children.length; ++i) {
                const auto *texto = static_cast<const GumboNode *>(e.children.data[i]);
                if (texto->type == GUMBO_NODE_TEXT)
                    estilo(texto->v.text.text);
            }
        }
    }

    void titulos(const GumboNode *nodo)
    {
        if (nodo->v.element.tag == GUMBO_TAG_TITLE && m_pagina.titulo.isEmpty())
            m_pagina.titulo = textoDe(nodo);
        else if (nodo->v.element.tag == GUMBO_TAG_H1 && m_pagina.encabezado.isEmpty())
            m_pagina.encabezado = textoDe(nodo);
    }

    void enlaces(const GumboNode *nodo)
    {
        const GumboElement &e = nodo->v.element;
        if (e.attributes.length == 0)
            return;
        if (const char *estiloPropio = atributo(e, "style"))
            estilo(estiloPropio);
        if (e.tag == GUMBO_TAG_BASE) {
            if (const char *base = atributo(e, "href"); base != nullptr && m_base.empty())
                m_base = base;
            return;
        }
        if (const char *href = atributo(e, "href")) {
            const bool ancla = e.tag == GUMBO_TAG_A || e.tag == GUMBO_TAG_AREA;
            agregar(href, ancla ? Enlace::Ancla : Enlace::Recurso, ancla ? rotulo(nodo) : QString(),
                    ancla ? primerTexto(nodo) : QString());
        }
        for (const char *nombre : {"src", "background", "poster", "xlink:href"}) {
            if (const char *direccion = atributo(e, nombre))
                agregar(direccion, e.tag == GUMBO_TAG_IFRAME || e.tag == GUMBO_TAG_FRAME
                                       ? Enlace::Ancla
                                       : Enlace::Recurso);
        }
        // Of any other element it is a page's own affair.
        if (const char *datos = atributo(e, "data"); datos != nullptr && e.tag == GUMBO_TAG_OBJECT)
            agregar(datos, Enlace::Recurso);
        if (const char *varias = atributo(e, "srcset"))
            agregarVarias(varias);
        if (e.tag == GUMBO_TAG_META)
            otraPagina(e);
    }

    // "a.png 1x, b.png 2x"
    void agregarVarias(const char *varias)
    {
        for (const QString &una : QString::fromUtf8(varias).split(u',')) {
            const QString direccion = una.simplified().section(u' ', 0, 0);
            if (!direccion.isEmpty())
                agregar(direccion.toStdString(), Enlace::Recurso);
        }
    }

    // "5; url=otra.html"
    void otraPagina(const GumboElement &e)
    {
        const char *clase = atributo(e, "http-equiv");
        const char *contenido = atributo(e, "content");
        if (clase == nullptr || contenido == nullptr || qstricmp(clase, "refresh") != 0)
            return;
        const QString texto = QString::fromUtf8(contenido);
        const qsizetype lugar = texto.indexOf(u"url="_s, 0, Qt::CaseInsensitive);
        if (lugar >= 0) {
            QString direccion = texto.mid(lugar + 4);
            direccion.remove(u'"').remove(u'\'');
            agregar(direccion.toStdString(), Enlace::Ancla);
        }
    }

    void estilo(const char *css)
    {
        // Most of them name nothing.
        if (std::strstr(css, "(") == nullptr && std::strstr(css, "@") == nullptr)
            return;
        for (std::string &direccion : direccionesDeEstilo(css))
            agregar(std::move(direccion), Enlace::Recurso);
    }

    void agregar(std::string direccion, Enlace::Clase clase, QString rotulo = {},
                 QString propio = {})
    {
        m_pagina.enlaces.push_back(
            {std::move(direccion), clase, std::move(rotulo), std::move(propio)});
    }

    // A row's name is given to its first link alone.
    QString rotulo(const GumboNode *nodo)
    {
        const GumboNode *fila = filaDe(nodo);
        if (fila == nullptr || !m_filas.insert(fila).second)
            return {};
        return nombreEnFila(fila);
    }

    void marcar(const GumboNode *nodo, const GumboElement &e)
    {
        if (m_pagina.marcas.size() >= 4 * marcasMaximas)
            return;
        const std::string_view nombre = propio(e);
        for (const char *cual : {"id", "class"}) {
            const char *valor = atributo(e, cual);
            if (valor != nullptr && !conCifras(valor))
                m_pagina.marcas.push_back(marca(nombre, cual, valor));
        }
        const GumboNode *madre = nodo->parent;
        if (madre != nullptr && madre->type == GUMBO_NODE_ELEMENT
            && madre->v.element.tag != GUMBO_TAG_HTML && madre->v.element.tag != GUMBO_TAG_HEAD)
            m_pagina.marcas.push_back(marca(propio(madre->v.element), ">", nombre));
    }

    // With a base of its own, every address is one from there.
    void ponerBase()
    {
        if (m_base.empty())
            return;
        const std::string hasta = m_base.substr(0, m_base.find_last_of("/\\") + 1);
        for (Enlace &enlace : m_pagina.enlaces) {
            const bool absoluta = enlace.direccion.find(':') != std::string::npos
                                  || enlace.direccion.starts_with('/')
                                  || enlace.direccion.starts_with('#');
            if (!absoluta)
                enlace.direccion.insert(0, hasta);
        }
    }

    PaginaLeida &m_pagina;
    std::string m_base;
    std::unordered_set<const GumboNode *> m_filas; // whose name is given already
};

} // namespace

PaginaLeida leerPagina(const QByteArray &bytes)
{
    PaginaLeida pagina;
    const QByteArray utf8 = enUtf8(bytes);
    const ArbolHtml arbol(utf8);
    if (arbol.raiz() == nullptr)
        pagina.enredada = true;
    else
        Recorrido(pagina).recorrer(arbol.raiz());
    return pagina;
}
