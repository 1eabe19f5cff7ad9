// SPDX-License-Identifier: MIT
// How the engine is started: its environment and its profile.
#pragma once

#include "worker/render/Origen.h"

#include <QString>
#include <QWebEngineProfile>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

namespace motor {

// What the worker that started this program says in the environment.
struct Encargo {
    std::optional<Origen> origen; // PARVANEL_ORIGEN: the service; none when missing or malformed
    QString raiz;                 // PARVANEL_RAIZ: the archive root; empty when it is no absolute
                                  // path, "Quorvela" in the user's home when missing
    std::chrono::seconds plazo;   // PARVANEL_PLAZO_DIBUJO: after which the worker gives the page
                                  // up; 20 s when missing
};
Encargo encargo();

// Drops the variables by which the engine, or a library, could be told to do other than it should.
// Before anything else.
void limpiarEntorno();

// Bounds the memory of this process and of each that it starts. A page's script that asks for more
// is refused it; a page that cannot do without dies alone.
void limitarMemoria();

// Sets the variables that the engine reads at its start. Before any other Qt call. `pasarela`: the
// port of the engine's one way out, 0 for none.
void prepararEntorno(std::uint16_t pasarela);

// Keeps nothing on disk, and lets pages fetch what Aduana says. It must outlive its pages.
std::unique_ptr<QWebEngineProfile> perfil(const Encargo &encargo);

} // namespace motor
