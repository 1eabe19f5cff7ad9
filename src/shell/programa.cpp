// SPDX-License-Identifier: MIT
#include "shell/programa.h"
#include "Accesible.h"
#include "Aplicacion.h"
#include "estilo/Estilo.h"
#include "estilo/Logotipo.h"
#include "estilo/idioma.h"
#include "platform/HttpClient.h"
#include "platform/pausa.h"
#include "shell/Form1.h"
#include "shell/Montaje.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

Programa::Programa(char *nombre, const QString &identidad)
    : m_argumentos{nombre, nullptr},
      m_aplicacion(std::make_unique<Aplicacion>(m_cuantos, m_argumentos.data()))
{
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks): the application takes it over
    QApplication::setStyle(new Estilo);
    QApplication::setDesktopFileName(identidad);
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
    // The class of the windows is what the application is called when the first one is made.
    QApplication::setApplicationName(identidad);
    QApplication::setWindowIcon(Logotipo::icono());
}

int Programa::correr(const QString &ServiceBase)
{
    idioma::poner();
    accesible::instalar();
    // The end comes at once, from whatever handler or wait the close comes in: nothing is unwound
    // or saved.
    Montaje montaje({.ServiceBase = ServiceBase,
                     .autoridades = HttpClient::autoridadesDelSistema(),
                     .pausa = &pausa,
                     .terminar = [] {
                         std::_Exit(EXIT_SUCCESS);
                     }});
    montaje.ventana().show();
    QApplication::setApplicationName(u"Parvanel"_s); // as people read it from here on
    return QApplication::exec();
}
