// SPDX-License-Identifier: MIT
#include "worker/Encargo.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

[[noreturn]] void cumplir(const Encargo::Trabajo &trabajo, int escritura)
{
    [[maybe_unused]] const int hecho = prctl(PR_SET_PDEATHSIG, SIGKILL); // a real signal: it is
    // All of it together is well below the capacity of a pipe, hence one write and no loop.
    const auto decir = [escritura](const std::string &texto) {
        [[maybe_unused]] const ssize_t escritos = write(escritura, texto.data(), texto.size());
    };
    decir(trabajo(decir));
    _exit(0); // the parent's objects are the parent's to destroy
}

} // namespace

std::unique_ptr<Encargo> Encargo::empezar(const Trabajo &trabajo, Reloj::time_point tope)
{
    std::array<int, 2> tubo{};
    if (pipe2(tubo.data(), O_CLOEXEC) != 0)
        return nullptr;
    const pid_t pid = fork();
    if (pid == 0)
        cumplir(trabajo, tubo[1]);
    close(tubo[1]);
    if (pid < 0) {
        close(tubo[0]);
        return nullptr;
    }
    std::unique_ptr<Encargo> encargo(new Encargo(pid, tubo[0], tope));
    // A pipe that blocks would hold the worker up for as long as the server likes.
    return fcntl(tubo[0], F_SETFL, O_NONBLOCK) == 0 ? std::move(encargo) : nullptr;
}

Encargo::Encargo(pid_t pid, int lectura, Reloj::time_point tope)
    : m_pid(pid), m_lectura(lectura), m_tope(tope)
{
}

Encargo::~Encargo()
{
    close(m_lectura);
    kill(m_pid, SIGKILL);
    while (waitpid(m_pid, nullptr, 0) < 0 && errno == EINTR) {
    }
}

bool Encargo::leer()
{
    std::array<char, 512> trozo{};
    for (;;) {
        const ssize_t leidos = read(m_lectura, trozo.data(), trozo.size());
        if (leidos > 0) {
            m_respuesta.append(trozo.data(), static_cast<std::size_t>(leidos));
            continue;
        }
        if (leidos < 0 && errno == EINTR)
            continue;
        return leidos == 0 || errno != EAGAIN;
    }
}
