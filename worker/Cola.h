// SPDX-License-Identifier: MIT
// The order of printing. Documents come out in the order in which they went in, whatever the
// order in which their pages get drawn and however some of them fail.
//
// Pure bookkeeping: no files, no processes, no clock of its own.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

class Cola {
public:
    using Turno = std::uint64_t; // counts from 0, never used twice
    using Momento = std::chrono::steady_clock::time_point;

    enum class Estado { EnEspera, Dibujando, Dibujado, Fallido };

    struct Documento {
        Turno turno = 0;
        std::string ruta; // as handed over
        Momento llegada;  // when it was
        Estado estado = Estado::EnEspera;
        bool repetido = false; // its one further drawing has been asked for
        int trabajo = 0;       // a print job begun for it, of which it is not known what became
        std::string pdf;       // only when Dibujado
        std::string titulo;    // the page's own, as for pdf; empty when it has none
        std::string motivo;    // only when Fallido: why it will not be printed
    };

    // `adelanto` is the greatest number of documents taken out of waiting and not yet retired. It
    // bounds the drawn pages that lie about while the printer or one slow page holds up the head.
    explicit Cola(std::size_t adelanto);

    void agregar(std::string ruta, Momento llegada = {});

    // The next document to draw; null when none waits or the head start is used up. Valid until
    // the next call that changes the queue.
    const Documento *porDibujar() const;

    // The turn must be one in the queue.
    void empezado(Turno turno);
    void dibujado(Turno turno, std::string pdf, std::string titulo = {});
    void fallido(Turno turno, std::string motivo);
    // Back to waiting, in its place, to be drawn once more. False when it has been already, and
    // then nothing changes.
    bool redibujar(Turno turno);
    void enDuda(Turno turno, int trabajo);

    // Whatever came until `hasta` and is not being drawn fails with `motivo`, the job in doubt
    // named. Gives the PDFs that nobody needs any more.
    std::vector<std::string> abandonar(Momento hasta, const std::string &motivo);

    // The document whose turn it is, once it is Dibujado or Fallido; null before that, whatever
    // the state of those behind it.
    const Documento *primero() const;
    // The head's path, whatever its state. The queue must hold one.
    const std::string &rutaPrimera() const;
    // Takes the head out, in whatever state, and gives its path. The queue must hold one.
    std::string retirar();

    bool vacia() const { return m_documentos.empty(); }
    std::size_t enEspera() const; // not yet begun

private:
    Documento &con(Turno turno);

    std::deque<Documento> m_documentos;
    Turno m_siguiente = 0;
    std::size_t m_adelanto;
};
