// SPDX-License-Identifier: MIT
// What the HTTP client asks of its operating system.
#pragma once

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <vector>

#include <curl/curl.h>

namespace HttpClientSistema {

// Once, before the library is made ready: a connection that the peer has closed must be an error of
// its request, never a signal that ends the program, and no variable of the environment may have
// the keys of the connections written to a file.
void preparar();

// A new socket, by the numbers that the system has for its kinds; CURL_SOCKET_BAD when there is
// none to be had. The library that asks for it closes it.
// A program that is started while it is open does not inherit it: the connection would stay open
// for as long as that program lives.
curl_socket_t abrirZocalo(int familia, int tipo, int protocolo);

// A socket that is waited for: what for, and, after the wait, what it is ready for.
struct Espera {
    curl_socket_t conexion = CURL_SOCKET_BAD;
    bool leer = false;
    bool escribir = false;
};

// Waits until one of them is ready, at the most so long; none is ready when the time is over. A
// socket that has failed is ready for whatever it is waited for.
void esperar(std::vector<Espera> &esperas, std::chrono::milliseconds alMas);

// Whether this computer has a way out to a peer (`direccion`: a socket address of the system's): a
// route, and an interface that is up and connected. It tells from its own tables and sends nothing.
bool haySalida(const void *direccion, std::size_t largo);

// What became of a name look-up: OtraVez when it failed for now or has found the name meanwhile, No
// when the name does not exist.
enum class Busqueda { EnCurso, OtraVez, No };
using Consulta = std::atomic<Busqueda>;

// Looks a name up in a thread of its own, which nobody waits for: the answer appears in the result.
// Null when that cannot be done.
std::shared_ptr<const Consulta> consultar(const QByteArray &nombre);

} // namespace HttpClientSistema
