// SPDX-License-Identifier: MIT
// One errand in a child process of its own: a function whose answer is a text, run under a
// deadline that nothing inside it can outlast. What it says on the way is known even when it never
// comes to its end.
//
// The print server is only ever spoken to in an errand. libcups can be given time limits of its
// own, but they do not reach everything that it waits for (name look-ups, the TLS handshake, a
// socket that opens and never answers, printer discovery), and a call that hangs would hold up
// reading the paths and watching the renderers. A child can always be killed, and takes a
// connection in a doubtful state, and whatever a library leaks, with it.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>

class Encargo {
public:
    using Reloj = std::chrono::steady_clock;
    using Decir = std::function<void(const std::string &)>; // ahead of the answer
    using Trabajo = std::function<std::string(const Decir &)>;

    // Forks; null when that fails. `trabajo` runs in the child, whose end is its return. The
    // calling process must be single-threaded. `tope` is when the errand counts as failed.
    static std::unique_ptr<Encargo> empezar(const Trabajo &trabajo, Reloj::time_point tope);
    // Kills the child if it still runs, and reaps it.
    ~Encargo();
    Encargo(const Encargo &) = delete;
    Encargo &operator=(const Encargo &) = delete;

    int descriptor() const { return m_lectura; } // readable when leer() has something to do
    Reloj::time_point tope() const { return m_tope; }

    // Takes what has come without blocking; true once the answer is whole.
    bool leer();
    // All that was said and then the answer, as far as it has come. Empty when the child ended
    // without a word.
    const std::string &respuesta() const { return m_respuesta; }

private:
    Encargo(pid_t pid, int lectura, Reloj::time_point tope);

    pid_t m_pid;
    int m_lectura;
    Reloj::time_point m_tope;
    std::string m_respuesta;
};
