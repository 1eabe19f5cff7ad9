// SPDX-License-Identifier: MIT
// The operating shell's verbs on a stored document. Neither waits, and neither reports a
// failure: a desktop without a browser or a printer shows it in its own way, or not at all.
#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

// What the print worker has to know of the program, handed to it in its environment and to nobody
// else: as PARVANEL_ORIGEN and PARVANEL_RAIZ.
struct EntornoImpresion {
    QString origen; // of the service, "https://host:port": pages may fetch from there
    // The native path of the archive root: pages may read below it. Asked for at each start of a
    // worker, since the root may have been made, or moved to another spelling, meanwhile. What it
    // refers to must outlive the Verbos that it is given to.
    std::function<QString()> raiz;
};

struct PlazosImpresion {
    // A worker reads at once what it is given; one that has left its pipe full for so long is
    // stuck and is replaced.
    std::chrono::milliseconds atasco = std::chrono::seconds(30);
    // After three workers in a row that took nothing, what they were to print is passed over, and
    // so is what comes for so long; then the next document starts one more, until one takes it.
    std::chrono::milliseconds descanso = std::chrono::seconds(60);
};

// It needs an application's event loop in its own thread: a full pipe's rest is written from there.
class Verbos {
public:
    explicit Verbos(const EntornoImpresion &entorno = {}, PlazosImpresion plazos = {});
    // Closes the worker's pipe. What was not yet written to it is lost, what was is printed.
    ~Verbos();
    Verbos(const Verbos &) = delete;
    Verbos &operator=(const Verbos &) = delete;

    // Opens the document in the user's program for its kind. `documento` is its native path.
    void abrir(const QString &documento);

    // Hands the document to the print worker, which prints in order what it is given and goes on
    // after this program has ended. What a worker that ended had not read goes to the next one. A
    // document that does not exist is passed over.
    void imprimir(const QString &documento);

private:
    class Interno;
    std::unique_ptr<Interno> d;
};
