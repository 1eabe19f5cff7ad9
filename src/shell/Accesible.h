// SPDX-License-Identifier: MIT
// The window as a screen reader has it, where the library's own account of an element misleads
// those who cannot see it: panels that would pass for windows, a password that would be read out,
// bullets that would be read before each line.
#pragma once

class QWidget;

namespace accesible {

// From now on the program's elements describe themselves so, and a screen reader is told what
// happens in the window (see AvisosAccesibles.h). No element's description is made before a reader
// asks for it: where there is none this costs nothing. To be called once, with the application
// there, before the first window is shown.
void instalar();

// Whether an element is there for its looks alone.
bool soloDibujado(const QWidget &elemento);

} // namespace accesible
