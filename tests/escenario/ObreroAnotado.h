// SPDX-License-Identifier: MIT
// What prints, as a test needs it: a real program that notes the documents it is given, as the
// system gives them to a program that prints.
#pragma once

#include <QStringList>

#include <memory>

// While it lives, documents are printed with its program. The notes are complete when the Verbos
// that printed is gone and terminado() says so.
class ObreroAnotado {
public:
    ObreroAnotado();
    ~ObreroAnotado();
    ObreroAnotado(const ObreroAnotado &) = delete;
    ObreroAnotado &operator=(const ObreroAnotado &) = delete;

    bool arrancado() const;
    bool terminado() const;
    // Whether it was started as often as it should be: once for all documents where there is a
    // print worker, and once for each where the system prints.
    bool lasVecesDebidas() const;
    QStringList documentos() const; // in the order in which they were given, by their native paths

private:
    class Interno;
    std::unique_ptr<Interno> d;
};
