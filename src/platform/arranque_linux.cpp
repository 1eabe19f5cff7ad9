// SPDX-License-Identifier: MIT
#include "platform/arranque_linux.h"

#include <csignal>

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace {

using arranque::Aparte;

// What a start needs, freed together. `fallo` is that of the first step that failed.
struct Preparativos {
    posix_spawn_file_actions_t acciones{};
    posix_spawnattr_t atributos{};
    int fallo = 0;

    Preparativos(int entrada, Aparte aparte)
    {
        probar(posix_spawn_file_actions_init(&acciones));
        probar(posix_spawnattr_init(&atributos));
        if (fallo != 0)
            return;
        probar(posix_spawn_file_actions_adddup2(&acciones, entrada, STDIN_FILENO));
        for (const int salida : {STDOUT_FILENO, STDERR_FILENO})
            probar(posix_spawn_file_actions_addopen(&acciones, salida, "/dev/null", O_WRONLY, 0));
        if (aparte == Aparte::Sesion)
            probar(posix_spawnattr_setflags(&atributos, POSIX_SPAWN_SETSID));
        else
            prepararGrupo();
    }
    ~Preparativos()
    {
        posix_spawnattr_destroy(&atributos);
        posix_spawn_file_actions_destroy(&acciones);
    }
    Preparativos(const Preparativos &) = delete;
    Preparativos &operator=(const Preparativos &) = delete;

private:
    void prepararGrupo()
    {
        sigset_t ninguna;
        sigset_t todas;
        sigemptyset(&ninguna);
        sigfillset(&todas);
        probar(posix_spawnattr_setpgroup(&atributos, 0));
        probar(posix_spawnattr_setsigmask(&atributos, &ninguna));
        probar(posix_spawnattr_setsigdefault(&atributos, &todas));
        probar(posix_spawnattr_setflags(&atributos, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK
                                                        | POSIX_SPAWN_SETSIGDEF));
    }

    void probar(int resultado)
    {
        if (fallo == 0)
            fallo = resultado;
    }
};

} // namespace

std::optional<pid_t> arranque::lanzar(const std::filesystem::path &programa,
                                      const std::vector<std::string> &argumentos,
                                      char *const *entorno, int entrada, Aparte aparte)
{
    const Preparativos preparativos(entrada, aparte);
    if (preparativos.fallo != 0)
        return std::nullopt;
    std::vector<std::string> palabras = argumentos;
    palabras.insert(palabras.begin(), programa.string());
    std::vector<char *> punteros;
    punteros.reserve(palabras.size() + 1);
    for (std::string &palabra : palabras)
        punteros.push_back(palabra.data());
    punteros.push_back(nullptr);
    pid_t pid = -1;
    const int fallo = ::posix_spawn(&pid, programa.c_str(), &preparativos.acciones,
                                    &preparativos.atributos, punteros.data(), entorno);
    return fallo == 0 ? std::optional(pid) : std::nullopt;
}
