// SPDX-License-Identifier: MIT
// The same window, wired to the demonstration school in the same process.
#include "demostracion/ServicioDemo.h"
#include "platform/proceso.h"
#include "shell/programa.h"

#include <iostream>

using namespace Qt::StringLiterals;

int main(int, char *argv[])
{
    proceso::asegurar();
    Programa programa(argv[0], u"example.parvanel.demo"_s);
    qputenv("no_proxy", "127.0.0.1"); // a proxy of the desktop does not reach this service
    const ServicioDemo servicio;
    const CuentaDemo &cuenta = servicio.escuela().cuentas.first();
    std::cout << "Usuario: " << cuenta.usuario.toStdString()
              << "\nContraseña: " << cuenta.clave.toStdString() << std::endl;
    return programa.correr(servicio.base());
}
