// The order of printing. Documents come out in the order in which they went in, whatever the
// order in which their pages get drawn and however some of them fail.
//
// Pure bookkeeping: no files, no processes, no clock.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

class Cola {
public:
    using Turno = std::uint64_t; // counts from 0, never used twice

    enum class Estado { EnEspera, Dibujando, Dibujado, Fallido };

    struct Documento {
        Turno turno = 0;
        std::string ruta; // as handed over
        Estado estado = Estado::EnEspera;
        std::string pdf;    // only when Dibujado
        std::string motivo; // only when Fallido: why it will not be printed
    };

    // `adelanto` is the greatest number of documents taken out of waiting and not yet retired. It
    // bounds the drawn pages that lie about while the printer or one slow page holds up the head.
    explicit Cola(std::size_t adelanto);

    void agregar(std::string ruta);

    // The next document to draw; null when none waits or the head start is used up. Valid until
    // the next call that changes the queue.
    const Documento *porDibujar() const;

    // The turn must be one in the queue.
    void empezado(Turno turno);
    void dibujado(Turno turno, std::string pdf);
    void fallido(Turno turno, std::string motivo);

    // The document whose turn it is, once it is Dibujado or Fallido; null before that, whatever
    // the state of those behind it.
    const Documento *primero() const;
    // Takes the head out, in whatever state, and gives its path. The queue must hold one.
    std::string retirar();

    bool vacia() const { return documentos_.empty(); }
    std::size_t enEspera() const; // not yet begun

private:
    Documento &con(Turno turno);

    std::deque<Documento> documentos_;
    Turno siguiente_ = 0;
    std::size_t adelanto_;
};
