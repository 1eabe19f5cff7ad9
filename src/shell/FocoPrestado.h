// SPDX-License-Identifier: MIT
// Elements that are hidden while a job runs, and the focus that one of them had: it waits at
// another element meanwhile, and comes back to where it was once they are shown again, unless the
// user has taken it to a third one. Whoever goes to the waiting place himself is taken to wait.
#pragma once

#include <QList>
#include <QWidget>

#include <utility>

class FocoPrestado {
public:
    // `espera`: the element where the focus waits, of the same window. All are borrowed.
    FocoPrestado(QList<QWidget *> elementos, QWidget *espera)
        : m_elementos(std::move(elementos)), m_espera(espera)
    {
    }

    void esconder()
    {
        QWidget *actual = m_espera->window()->focusWidget();
        m_tenia = m_elementos.contains(actual) ? actual : nullptr;
        // Not left to the library, which moves it on only in a window that is active just now.
        if (m_tenia)
            m_espera->setFocus();
        mostrar(false);
    }

    void devolver()
    {
        mostrar(true);
        const bool esperando = m_espera->window()->focusWidget() == m_espera;
        if (m_tenia && esperando && m_tenia->isVisible())
            m_tenia->setFocus();
        m_tenia = nullptr;
    }

private:
    void mostrar(bool visibles) const
    {
        for (QWidget *elemento : m_elementos)
            elemento->setVisible(visibles);
    }

    QList<QWidget *> m_elementos;
    QWidget *m_espera;
    QWidget *m_tenia = nullptr; // the one of `m_elementos` that had the focus
};
