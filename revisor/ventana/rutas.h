// SPDX-License-Identifier: MIT
// Paths as the window's toolkit has them and as the reviewer's core has them.
#pragma once

#include <QString>

#include <filesystem>

namespace rutas {

std::filesystem::path deTexto(const QString &ruta);
// What is no valid text in it comes out as near as can be.
QString enTexto(const std::filesystem::path &ruta);

} // namespace rutas
