// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <vector>

#include <gumbo.h>

// A page's tree of elements, made by the HTML parser in memory of its own. The parser frees a tree
// by a function that calls itself for every child; a deep page would end the program. Here the tree
// goes with the memory in which it stands, all at once. A thread has one at a time: the next one
// takes the same memory.
class ArbolHtml {
public:
    // `utf8` is borrowed and must outlive the tree.
    explicit ArbolHtml(const QByteArray &utf8);
    ArbolHtml(const ArbolHtml &) = delete;
    ArbolHtml &operator=(const ArbolHtml &) = delete;

    // Null when the page is nested too deeply, or needs too much memory or time.
    const GumboNode *raiz() const { return m_raiz; }

private:
    const GumboNode *m_raiz = nullptr;
};

// The nodes below one, itself first, in the order of the text. It keeps its way in a list: a deep
// tree needs no deep calls.
class Paseo {
public:
    explicit Paseo(const GumboNode *raiz) : m_raiz(raiz) {}

    // Null after the last.
    const GumboNode *siguiente();

private:
    struct Paso {
        const GumboVector *hijos;
        unsigned hijo;
    };

    const GumboNode *m_raiz;
    std::vector<Paso> m_camino;
};
