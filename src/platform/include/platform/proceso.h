// SPDX-License-Identifier: MIT
// What a program of this project asks of the system for its own process.
#pragma once

#include <string>
#include <vector>

namespace proceso {

// The first thing that every main does, and a thing that cannot fail. Where the system would look
// for libraries in folders that anybody may write to, it looks in its own from then on; that holds
// from before the first library is loaded. What the process writes to its console, to a file or to
// a pipe stays as it is, byte for byte, and a console takes it for UTF-8.
void asegurar();

// The command line that main was given, without the program's name. Each argument is what a path
// is made of: its bytes on systems where names are bytes, else UTF-8.
std::vector<std::string> argumentos(int argc, const char *const *argv);

// For a program with a command line as well as a window, once it is to be the window: a console
// that the system opened for this process alone is closed. One that somebody had open before stays.
void soltarConsola();

} // namespace proceso
