// SPDX-License-Identifier: MIT
// Starts a program that is fed through its standard input and says nothing: the print worker, and
// the renderers that the worker itself starts. Without Qt.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace arranque {

// What the new process has of its own.
enum class Aparte {
    // A session: neither a closed terminal nor the end of the one that starts it ends it. What that
    // one ignores, it ignores.
    Sesion,
    // A process group, by which it is ended with all that it starts itself; every signal does what
    // it does in a new program, also one that the starting process blocks or ignores.
    Grupo,
};

// The new process, whose end the caller reaps; nothing when it could not be started. `argumentos`
// come after the program's own name. `entorno` ("NAME=value", ended by a null pointer) and
// `entrada`, a descriptor that becomes the standard input, are borrowed for the call. What the
// program writes to its standard output and error is lost. Of the other descriptors it gets those
// that are not closed on exec.
std::optional<pid_t> lanzar(const std::filesystem::path &programa,
                            const std::vector<std::string> &argumentos, char *const *entorno,
                            int entrada, Aparte aparte);

} // namespace arranque
