// How the engine is started: its environment and its profile.
#pragma once

#include <QWebEngineProfile>

#include <memory>

namespace motor {

// Sets the variables that the engine reads at its start. Before any other Qt call.
void prepararEntorno();

// Keeps nothing on disk, and fetches nothing but local files. It must outlive its pages.
std::unique_ptr<QWebEngineProfile> perfil();

} // namespace motor
