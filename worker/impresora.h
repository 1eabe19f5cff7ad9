// The print server. Every operation here may block for as long as the server likes: call them in
// an errand (Encargo.h), never in the worker's own process.
#pragma once

#include "worker/papel.h"

#include <optional>
#include <string>

// A queue as the user sees it: its name, and the instance of it with the user's own options.
struct Impresora {
    std::string nombre;
    std::string instancia; // often empty
    Papel papel;
};

namespace impresora {

// The user's default destination, else the server's, else the only queue that is set up; with the
// paper it prints on. A failure gives a reason in `motivo`, for the log.
std::optional<Impresora> predeterminada(std::string &motivo);

// Hands a PDF file over and gives the job's number; 0 and a reason when the server refuses.
int imprimir(const Impresora &destino, const std::string &pdf, const std::string &titulo,
             std::string &motivo);

// The answers above as the text that an errand carries back: "+" and what was asked for, or "-"
// and the reason. Reading gives nothing for a reason, and for what is no such text.
std::string aTexto(const std::optional<Impresora> &impresora, const std::string &motivo);
std::string aTexto(int trabajo, const std::string &motivo);
std::optional<Impresora> deTexto(const std::string &texto);

} // namespace impresora
