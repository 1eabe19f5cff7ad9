// SPDX-License-Identifier: MIT
// parvanel-print: prints HTML files, in order, on the user's default printer.
//
// Standard input: one absolute path for each line, UTF-8, ended by a line feed. It ends by itself,
// with code 0, when the input has ended and everything handed over has been dealt with. Options:
// see opciones.h; PARVANEL_ORIGEN and PARVANEL_RAIZ are for the renderer (render/motor.h).

#include "platform/companeros.h"
#include "worker/Imprenta.h"
#include "worker/temporal.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <string>
#include <sys/prctl.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t bytesDelRegistro = std::uintmax_t(256) * 1024;

volatile std::sig_atomic_t interrumpido = 0;

// Where it is missing it is looked for in its last place each time that a page is to be drawn.
fs::path dibujador()
{
    const std::string nombre = "parvanel-print-render";
    std::error_code sinImportancia; // without a place of its own the last one is left
    const fs::path propia = fs::read_symlink("/proc/self/exe", sinImportancia).parent_path();
    return companeros::hallar(nombre, propia).value_or(companeros::lugares(nombre, propia).back());
}

// Blocks the signals that the loop wants to hear of, and gives the mask to wait under. None of the
// calls can fail: the signals are real ones.
sigset_t prepararSenales()
{
    struct sigaction accion {};
    sigemptyset(&accion.sa_mask);
    accion.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &accion, nullptr); // a renderer that is gone is noticed by its absence
    accion.sa_handler = [](int) {
    };
    sigaction(SIGCHLD, &accion, nullptr); // only to wake the loop
    accion.sa_handler = [](int) {
        interrumpido = 1;
    };
    sigset_t bloqueadas;
    sigemptyset(&bloqueadas);
    sigaddset(&bloqueadas, SIGCHLD);
    for (const int fin : {SIGTERM, SIGINT, SIGHUP}) {
        sigaction(fin, &accion, nullptr);
        sigaddset(&bloqueadas, fin);
    }
    sigset_t anteriores;
    sigprocmask(SIG_BLOCK, &bloqueadas, &anteriores);
    for (const int senal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP})
        sigdelset(&anteriores, senal);
    return anteriores;
}

} // namespace

int main(int argc, char **argv)
{
    const auto opciones = leerOpciones({argv + 1, argv + argc});
    if (!opciones) {
        std::cerr << "uso: parvanel-print [--plazo-dibujo SEGUNDOS] [--plazo-servidor SEGUNDOS]"
                     " [--plazo-ausencia SEGUNDOS]\n";
        return 2;
    }
    const sigset_t senales = prepararSenales();
    // A renderer's own children come to the worker when it ends, and are reaped with it.
    if (prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0) {
        std::perror("parvanel-print");
        return 1;
    }

    const CarpetaTemporal carpeta;
    if (carpeta.ruta().empty()) {
        std::cerr << "parvanel-print: no hay carpeta temporal\n";
        return 1;
    }
    // What renderers leave about when they are killed goes with the folder.
    constexpr int encima = 1;
    constexpr int siFalta = 0; // the engine makes a runtime folder up otherwise
    const std::string plazo = std::to_string(opciones->plazoDibujo.count());
    // The flag belongs to the open file, which the worker shares with nobody that reads it.
    const int modo = fcntl(STDIN_FILENO, F_GETFL);
    if (setenv("TMPDIR", carpeta.ruta().c_str(), encima) != 0
        || setenv("XDG_RUNTIME_DIR", carpeta.ruta().c_str(), siFalta) != 0
        || setenv("PARVANEL_PLAZO_DIBUJO", plazo.c_str(), encima) != 0 || modo < 0
        || fcntl(STDIN_FILENO, F_SETFL, modo | O_NONBLOCK) != 0
        || fcntl(STDIN_FILENO, F_SETFD, FD_CLOEXEC) != 0) {
        std::perror("parvanel-print");
        return 1;
    }

    Imprenta imprenta(STDIN_FILENO, dibujador(), carpeta.ruta(),
                      Registro(registro::archivoDelUsuario(), bytesDelRegistro), *opciones);
    imprenta.trabajar(senales, interrumpido);
    return interrumpido ? 1 : 0;
}
