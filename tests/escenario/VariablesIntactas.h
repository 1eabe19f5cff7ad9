// SPDX-License-Identifier: MIT
// Environment variables that a test may change as it likes.
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <initializer_list>
#include <utility>
#include <vector>

// At its end each of the named variables is again as it was at its beginning, unset or set,
// whatever has become of the test in between. Keeps the names, which must outlive it.
class VariablesIntactas {
public:
    VariablesIntactas(std::initializer_list<const char *> nombres)
    {
        for (const char *nombre : nombres)
            m_antes.emplace_back(nombre, qgetenv(nombre));
    }
    ~VariablesIntactas()
    {
        for (const auto &[nombre, antes] : m_antes) {
            if (antes.isNull())
                qunsetenv(nombre);
            else
                qputenv(nombre, antes);
        }
    }
    VariablesIntactas(const VariablesIntactas &) = delete;
    VariablesIntactas &operator=(const VariablesIntactas &) = delete;

private:
    std::vector<std::pair<const char *, QByteArray>> m_antes;
};
