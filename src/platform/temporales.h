// SPDX-License-Identifier: MIT
// The names under which files are received, ".descarga-PROCESS-NUMBER", and when one of them is
// abandoned: plain functions, the same on every system.
#pragma once

#include <QString>

#include <optional>

namespace temporales {

QString nombre(qint64 proceso, unsigned numero);

// The names that one drive C gives, each once, so that two downloads which are under way at once do
// not ask for the same. Those of another in this process may; whoever makes a file passes a name by
// that is taken.
class Nombres {
public:
    QString siguiente(qint64 proceso) { return nombre(proceso, ++m_dados); }

private:
    unsigned m_dados = 0;
};

// The process that the name tells; nothing for any other name.
std::optional<qint64> procesoDe(const QString &nombre);

// What a system knows of the process that has a number now.
struct Proceso {
    bool vive = false;              // one that has ended and waits for its parent does not
    std::optional<qint64> comienzo; // seconds since 1970; nothing when it is not known
};

// Whether that process can have written a file that was last written to at `escrito`, seconds
// since 1970: one that was given the number later did not.
bool puedeSerElEscritor(const Proceso &proceso, qint64 escrito);

} // namespace temporales
