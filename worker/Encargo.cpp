#include "worker/Encargo.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void cumplir(const std::function<std::string()> &trabajo, int escritura)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const std::string respuesta = trabajo();
    // Well below the capacity of a pipe, hence one write and no loop.
    [[maybe_unused]] const ssize_t escritos = write(escritura, respuesta.data(), respuesta.size());
    _exit(0); // the parent's objects are the parent's to destroy
}

} // namespace

std::unique_ptr<Encargo> Encargo::empezar(const std::function<std::string()> &trabajo,
                                          Reloj::time_point tope)
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
    fcntl(tubo[0], F_SETFL, O_NONBLOCK);
    return std::unique_ptr<Encargo>(new Encargo(pid, tubo[0], tope));
}

Encargo::Encargo(pid_t pid, int lectura, Reloj::time_point tope)
    : pid_(pid), lectura_(lectura), tope_(tope)
{
}

Encargo::~Encargo()
{
    close(lectura_);
    kill(pid_, SIGKILL);
    while (waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

bool Encargo::leer()
{
    std::array<char, 512> trozo{};
    for (;;) {
        const ssize_t leidos = read(lectura_, trozo.data(), trozo.size());
        if (leidos > 0) {
            respuesta_.append(trozo.data(), static_cast<std::size_t>(leidos));
            continue;
        }
        if (leidos < 0 && errno == EINTR)
            continue;
        return leidos == 0 || errno != EAGAIN;
    }
}
