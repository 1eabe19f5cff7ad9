// SPDX-License-Identifier: MIT
// How long a file that another program holds is waited for: tried again for up to a second, as a
// virus scanner or a browser lets go of it in less, and then passed over.
#pragma once

#include <chrono>
#include <functional>
#include <optional>

class Paciencia {
public:
    using Milisegundos = std::chrono::milliseconds;
    struct Reloj {
        std::function<Milisegundos()> ahora; // of a clock that never goes back
        std::function<void(Milisegundos)> dormir;
    };
    static Reloj relojDelSistema();

    static constexpr Milisegundos total{1000};
    static constexpr Milisegundos paso{10}; // between one try and the next

    explicit Paciencia(Reloj reloj = relojDelSistema());

    // Waits until the next try. The second begins at the first call; false, without a wait, when it
    // is over. One operation has one second, however many files it meets that are held.
    bool esperar();

private:
    Reloj m_reloj;
    std::optional<Milisegundos> m_hasta;
};
