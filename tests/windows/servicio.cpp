// SPDX-License-Identifier: MIT
// The demonstration school as a service without a window. Says its address, "http://127.0.0.1:P",
// and ends with its input.
#include "demostracion/ServicioDemo.h"

#include <QGuiApplication>

#include <iostream>
#include <string>

int main(int cuantos, char *argumentos[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // labels are drawn, and nothing is shown
    const QGuiApplication aplicacion(cuantos, argumentos);
    const ServicioDemo servicio;
    std::cout << servicio.base().toStdString() << std::endl;
    for (std::string linea; std::getline(std::cin, linea);) {
    }
    return 0;
}
