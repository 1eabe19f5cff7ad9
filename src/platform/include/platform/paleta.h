// SPDX-License-Identifier: MIT
// The desktop's choice of a light or dark appearance.
#pragma once

#include <QPalette>

#include <memory>

// The program's own dark palette, for desktops that say "dark" and no more.
QPalette paletaOscura();

// Keeps the application's palette as the desktop wants it, for as long as it lives. Where Qt's
// own desktop integration has already set a dark palette, nothing is changed. Made after the
// application, whose integration is asked, and gone before it.
class PaletaEscritorio {
public:
    PaletaEscritorio();
    ~PaletaEscritorio();
    PaletaEscritorio(const PaletaEscritorio &) = delete;
    PaletaEscritorio &operator=(const PaletaEscritorio &) = delete;

private:
    class Interno;
    std::unique_ptr<Interno> d;
};
