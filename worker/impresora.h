// SPDX-License-Identifier: MIT
// The print server. Every operation here may block for as long as the server likes: call them in
// an errand (Encargo.h), never in the worker's own process.
#pragma once

#include "worker/papel.h"

#include <functional>
#include <optional>
#include <string>

// A queue as the user sees it: its name, and the instance of it with the user's own options.
struct Impresora {
    std::string nombre;
    std::string instancia; // often empty
    Papel papel;
};

namespace impresora {

// Why there is nothing to give back.
struct Falla {
    std::string motivo; // for the log
    // There was no answer at all: no server, or none any more. What it was asked it may still do
    // when it is back; an answer that refuses is one for good.
    bool ausente = false;
};

// The user's default destination, else the server's, else the only queue that is set up; with the
// paper it prints on.
std::optional<Impresora> predeterminada(Falla &falla);

struct Entrega {
    std::string pdf;
    std::string titulo; // UTF-8, of one line, 255 bytes at the most
    // The job begun for this document by an earlier call that was cut off, else 0. If the server
    // has the document, that is its job, and it is not handed over twice.
    int previo = 0;
};

// Hands a PDF file over and gives the job's number, else 0. `empezado` hears of the job's number
// before the document goes out: should the server go away then, the next call has to know.
int imprimir(const Impresora &destino, const Entrega &entrega,
             const std::function<void(int)> &empezado, Falla &falla);

// What an errand carries back of the answers above, as a text.
std::string aTexto(const std::optional<Impresora> &impresora, const Falla &falla);
std::string aTexto(int trabajo, const Falla &falla);
std::string empezadoATexto(int trabajo); // goes ahead of the answer

struct Contestacion {
    enum class Clase { Hecho, Negado, Ausente };
    Clase clase = Clase::Ausente;
    std::string contenido; // what was asked for, or the reason
    int empezado = 0;      // the last job begun, 0 for none
};

// Whatever is not a whole answer is an absence without a reason.
Contestacion leer(const std::string &texto);
// Of a Contestacion's content; nothing when that is no printer.
std::optional<Impresora> deTexto(const std::string &contenido);

} // namespace impresora
