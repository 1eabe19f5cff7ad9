// SPDX-License-Identifier: MIT
// The program from the application's start to its end, for the two mains.
#pragma once

#include <QApplication>
#include <QString>

#include <array>
#include <memory>

class Programa {
public:
    // Starts the application, which must be there before anything that draws or waits. The
    // program takes no command line: of all arguments its library sees the first alone, the
    // program's own name, since it has options of its own that would change the window.
    // `nombre` must outlive the object. `identidad` is what the desktop knows the program by, the
    // name of its desktop file without the ending: its windows stand under that file's icon.
    Programa(char *nombre, const QString &identidad);

    // Shows the window for the service at `ServiceBase` and turns the event loop. Does not return
    // once the window has been closed.
    int correr(const QString &ServiceBase);

private:
    int m_cuantos = 1; // the library keeps references to both
    std::array<char *, 2> m_argumentos;
    std::unique_ptr<QApplication> m_aplicacion;
};
