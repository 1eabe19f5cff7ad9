// SPDX-License-Identifier: MIT
// One renderer process: started ahead of need, given pages one after another, and gone with
// everything it started when it is destroyed.
#pragma once

#include "worker/papel.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>

class Dibujante {
public:
    using Reloj = std::chrono::steady_clock;

    // Starts the program in a process group of its own, where it warms up and waits for its page.
    // Null when it cannot be started.
    static std::unique_ptr<Dibujante> nacer(const std::filesystem::path &programa);

    // Kills the group and reaps every process of it, those that outlived the renderer included:
    // the worker adopts them (see main).
    ~Dibujante();
    Dibujante(const Dibujante &) = delete;
    Dibujante &operator=(const Dibujante &) = delete;

    // Gives it a page when it has none; it has until `tope`. False when it is not there to take it.
    bool encargar(const Papel &papel, const std::string &html, const std::string &pdf,
                  Reloj::time_point tope);

    bool ocupado() const { return m_tope.has_value(); }
    Reloj::time_point tope() const { return m_tope.value_or(Reloj::time_point::max()); }

    struct Fin {
        std::string motivo;   // empty when it did what it was asked, else a reason for the log
        bool murio = false;   // the engine went, for all that is known not on the page's account
        bool sigue = false;   // the process is there for another page
        std::string titulo{}; // the page's own; empty when it has none
    };
    // How its page, or the process, ended; nothing while it runs.
    std::optional<Fin> fin();
    int descriptor() const { return m_zocalo; } // readable when fin() has something to tell

    // Whether its page has made it take more memory than a page may.
    bool desbordado() const;

private:
    bool leer();
    std::string titulo() const;

    Dibujante(pid_t pid, int zocalo) : m_pid(pid), m_zocalo(zocalo) {}

    pid_t m_pid;  // of the process and of its group
    int m_zocalo; // its other end is the renderer's standard input
    std::optional<Reloj::time_point> m_tope;
    std::string m_dicho; // what the renderer has said of its page
};
