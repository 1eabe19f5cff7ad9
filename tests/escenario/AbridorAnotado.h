// SPDX-License-Identifier: MIT
// What opens documents, as a test needs it: a real program in the place of the browser.
#pragma once

#include <QStringList>

#include <memory>

// While it lives, documents are opened with its program.
class AbridorAnotado {
public:
    AbridorAnotado();
    ~AbridorAnotado();
    AbridorAnotado(const AbridorAnotado &) = delete;
    AbridorAnotado &operator=(const AbridorAnotado &) = delete;

    // In the order in which they were given, by their native paths with "/". One that was given
    // with something else, or by more than one argument, is told otherwise.
    QStringList abiertos() const;

private:
    class Interno;
    std::unique_ptr<Interno> d;
};
