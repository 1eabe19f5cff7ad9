// The operating shell's verbs on a stored document. Neither waits, and neither reports a
// failure: a desktop without a browser or a printer shows it in its own way, or not at all.
#pragma once

#include <QString>

#include <chrono>
#include <memory>

class Verbos {
public:
    // A worker reads at once what it is given; one that has left its pipe full for `plazoAtasco`
    // is stuck and is replaced.
    explicit Verbos(std::chrono::milliseconds plazoAtasco = std::chrono::seconds(30));
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
