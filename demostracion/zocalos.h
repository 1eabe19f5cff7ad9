// SPDX-License-Identifier: MIT
// The sockets of the demonstration service, and of the tests' own servers and clients: TCP over
// this computer's loopback. One source for each system.
#pragma once

#include <QtGlobal>

#include <span>

namespace zocalos {

// The system's own number of an open socket. Whoever has it closes it. No program that is started
// while it is open inherits it.
using Zocalo = qintptr;
inline constexpr Zocalo ninguno = -1;

// Instead of a number of bytes: nothing can be moved now.
inline constexpr qsizetype ahoraNo = -2;

// Listens at any free port of this address ("127.0.0.1"), for so many connections that nobody has
// taken yet; it never blocks. `ninguno` when that cannot be done, and `puerto` stays.
Zocalo oir(const char *direccion, int cola, int &puerto);
// The next connection, which blocks; `ninguno` when none has come.
Zocalo aceptar(Zocalo oido);
// A connection to a port of 127.0.0.1, which blocks; `ninguno` when it is refused.
Zocalo conectar(int puerto);

// Reading and writing never block from now on.
void noBloquear(Zocalo zocalo);
// Small pieces go out at once.
void noDemorar(Zocalo zocalo);

// How many bytes have been moved; 0 of recibir(): the peer has ended; -1: it is broken; ahoraNo.
qsizetype recibir(Zocalo zocalo, char *donde, qsizetype cuantos);
qsizetype enviar(Zocalo zocalo, const char *bytes, qsizetype cuantos);

// The peer reads the end, and may still send.
void terminarEnvio(Zocalo zocalo);
void cerrar(Zocalo zocalo);

// A socket that is waited for: what for, and, after the wait, whether it is ready or has failed.
struct Espera {
    Zocalo zocalo = ninguno;
    bool escribir = false; // else to read
    bool lista = false;
};

inline constexpr int sinLimite = -1;

// Waits until one of them is ready, at the most so many milliseconds. Whether one is.
bool esperar(std::span<Espera> esperas, int milisegundos);

// A stop that threads wait for together with their sockets.
class Parada {
public:
    // Throws std::runtime_error when the system has nothing to make it of.
    Parada();
    ~Parada();
    Parada(const Parada &) = delete;
    Parada &operator=(const Parada &) = delete;

    // Readable from dar() on, for good. Only to be waited for.
    Zocalo zocalo() const { return m_extremos[0]; }
    void dar();

private:
    Zocalo m_extremos[2] = {ninguno, ninguno};
};

} // namespace zocalos
