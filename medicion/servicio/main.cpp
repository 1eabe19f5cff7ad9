// SPDX-License-Identifier: MIT
// The measuring service: a school of any size on two loopback ports, plain and TLS 1.3 with
// sessions that resume, quick enough never to be what a client waits for.
//
//   bench-servicio FILE    writes the certificate authority (PEM) to FILE and says where it
//                          listens: "http://127.0.0.1:P https://127.0.0.1:Q"
//
// Then it takes commands on standard input, one a line, and answers each with a line of its own:
//   escuela CLASSROOMS STUDENTS SUBJECTS PAGE_BYTES PHOTO_EVERY    "ok"
//   demora MILLISECONDS    holds each reply back for so long; "ok"
//   volcar FILE            writes the addresses asked for since the last time, in their order, one
//                          a line, and forgets them; "ok COUNT"
// It ends with its input.
#include "EscuelaMedida.h"
#include "Oyente.h"
#include "demostracion/identidadTls.h"

#include <fstream>
#include <iostream>
#include <sstream>

#include <unistd.h>

namespace {

std::size_t volcar(const std::string &archivo, std::initializer_list<Oyente *> oyentes)
{
    std::ofstream salida(archivo);
    std::size_t cuantas = 0;
    for (Oyente *oyente : oyentes) {
        for (const std::string &direccion : oyente->tomarDirecciones()) {
            salida << direccion << '\n';
            ++cuantas;
        }
    }
    return cuantas;
}

void obedecer(std::istream &ordenes, Oyente &llano, Oyente &cifrado)
{
    for (std::string linea; std::getline(ordenes, linea);) {
        std::istringstream palabras(linea);
        std::string orden;
        palabras >> orden;
        if (orden == "escuela") {
            TamanoMedido t;
            palabras >> t.salones >> t.alumnos >> t.materias >> t.pagina >> t.fotoCada;
            for (Oyente *oyente : {&llano, &cifrado})
                oyente->poner(std::make_shared<EscuelaMedida>(t, oyente->base()));
            std::cout << "ok" << std::endl;
        } else if (orden == "demora") {
            long demora = 0;
            palabras >> demora;
            for (Oyente *oyente : {&llano, &cifrado})
                oyente->demorar(std::chrono::milliseconds(demora));
            std::cout << "ok" << std::endl;
        } else if (orden == "volcar") {
            std::string archivo;
            palabras >> archivo;
            std::cout << "ok " << volcar(archivo, {&llano, &cifrado}) << std::endl;
        } else {
            std::cout << "no such command" << std::endl;
        }
    }
}

} // namespace

int main(int cuantos, char *argumentos[])
{
    if (cuantos != 2) {
        std::cerr << "usage: bench-servicio FILE\n";
        return 2;
    }
    const demo::IdentidadTls identidad = demo::crearIdentidadTls();
    std::ofstream(argumentos[1], std::ios::binary) << identidad.autoridad.toStdString();
    Oyente llano(nullptr);
    Oyente cifrado(identidad.contexto.get());
    for (Oyente *oyente : {&llano, &cifrado}) {
        oyente->poner(std::make_shared<EscuelaMedida>(TamanoMedido(), oyente->base()));
        oyente->atender();
    }
    std::cout << llano.base() << ' ' << cifrado.base() << std::endl;
    obedecer(std::cin, llano, cifrado);
    std::cout.flush();
    ::_exit(0); // the threads go on waiting for connections until then
}
