// The operating shell's verbs on a stored document. Neither waits, and neither reports a
// failure: a desktop without a browser or a printer shows it in its own way, or not at all.
#pragma once

#include <QString>

#include <memory>

class Verbos {
public:
    Verbos();
    ~Verbos();
    Verbos(const Verbos &) = delete;
    Verbos &operator=(const Verbos &) = delete;

    // Opens the document in the user's program for its kind. `documento` is its native path.
    void abrir(const QString &documento);

    // Hands the document to the print worker, which prints in order what it is given and goes on
    // after this program has ended. A document that does not exist is passed over.
    void imprimir(const QString &documento);

private:
    class Interno;
    std::unique_ptr<Interno> d;
};
