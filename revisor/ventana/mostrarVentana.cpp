// SPDX-License-Identifier: MIT
#include "mostrarVentana.h"
#include "Ventana.h"
#include "estilo/Estilo.h"
#include "estilo/dibujo.h"
#include "estilo/idioma.h"
#include "platform/DriveC.h"
#include "platform/Verbos.h"
#include "platform/paleta.h"
#include "revisor/copia.h"

#include <QApplication>

#include <array>
#include <cstdlib>

using namespace Qt::StringLiterals;

int mostrarVentana()
{
    // The library keeps references to both; it sees no argument but a name.
    int cuantos = 1;
    std::array<char, 17> nombre{"parvanel-revisor"};
    std::array<char *, 2> argumentos{nombre.data(), nullptr};
    const QApplication aplicacion(cuantos, argumentos.data());
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks): the application takes it over
    QApplication::setStyle(new Estilo);
    const auto identidad = u"example.parvanel.revisor"_s; // its desktop file is called so
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setDesktopFileName(identidad);
    // The class of the windows is what the application is called when the first one is made.
    QApplication::setApplicationName(identidad);
    QApplication::setApplicationDisplayName(u"Revisor de Históricos"_s);
    QApplication::setWindowIcon(dibujo::icono(u":/revisor/example.parvanel.revisor"_s));

    // Before there is a second thread. What needs it asks again, and says so if it cannot be had.
    static_cast<void>(copia::nombresEnUtf8());

    idioma::poner();

    const PaletaEscritorio paleta;
    const DriveC disco(DriveC::carpetaPersonal());
    Verbos verbos;
    Ventana ventana(disco, verbos, [] { std::_Exit(EXIT_SUCCESS); });
    ventana.show();
    QApplication::setApplicationName(u"parvanel-revisor"_s); // as it is called from here on
    return QApplication::exec();
}
