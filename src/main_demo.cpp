// SPDX-License-Identifier: MIT
// The same window, wired to the demonstration school in the same process.
#include "demostracion/ServicioDemo.h"
#include "platform/proceso.h"
#include "shell/programa.h"

#include <iostream>

int main(int, char *argv[])
{
    proceso::asegurar();
    Programa programa(argv[0], QStringLiteral("example.parvanel.demo"));
    qputenv("no_proxy", "127.0.0.1"); // a proxy of the desktop does not reach this service
    const ServicioDemo servicio;
    const CuentaDemo &cuenta = servicio.escuela().cuentas.first();
    std::cout << "Usuario: " << cuenta.usuario.toStdString()
              << "\nContraseña: " << cuenta.clave.toStdString() << std::endl;
    return programa.correr(servicio.base());
}
