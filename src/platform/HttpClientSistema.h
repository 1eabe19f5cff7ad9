// SPDX-License-Identifier: MIT
// What the HTTP client asks of its operating system.
#pragma once

#include "BibliotecaCurl.h"

#include <QByteArray>

#include <chrono>
#include <cstddef>
#include <memory>
#include <vector>

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

// Tells a transfer whose word for a service's name it takes: `autoridades` as the client was given
// them. False: it could not be told, and must not begin. That certificates and names are verified
// is no matter of this.
bool confiarEn(const BibliotecaCurl &curl, CURL *easy, const QByteArray &autoridades);

// Asked when the connection of such a transfer has been made, encryption included, and before
// anything is sent: whether the service has proved its name, for all that the system can tell. The
// library has verified it already.
bool esDeConfianza(const BibliotecaCurl &curl, CURL *easy, const QByteArray &autoridades);

// The proxy that the user has set in the system, where the system has such a thing. The one that
// the environment names is the library's own business, and comes first.
class Proxy {
public:
    Proxy();
    ~Proxy();
    Proxy(const Proxy &) = delete;
    Proxy &operator=(const Proxy &) = delete;

    // Whether it is known for this whole address. Asked again after a moment when it is not: the
    // first call begins to find it out, and no call waits for that.
    bool conocido(const QByteArray &direccion);
    // Tells a transfer to this address which one it goes by; what is not known is none. False: it
    // could not be told, and the transfer must not begin.
    bool poner(const BibliotecaCurl &curl, CURL *easy, const QByteArray &direccion) const;

private:
    class Interno;
    std::unique_ptr<Interno> d; // null where the system has none
};

// A socket that is waited for: what for, and, after the wait, what it is ready for.
struct Espera {
    curl_socket_t conexion = CURL_SOCKET_BAD;
    bool leer = false;
    bool escribir = false;
};

// Waits until one of them is ready, at the most so long; none is ready when the time is over. A
// socket that has failed is ready for whatever it is waited for.
void esperar(std::vector<Espera> &esperas, std::chrono::milliseconds alMas);

// Turns this thread's event loop: handles what events there are, or waits for one. It may return
// without any.
void girar();

// Whether the event loop tells of everything that becomes of a socket that it watches. Where it
// does not, the sockets are looked at with each turn as well.
bool avisaDeTodo();

// Whether this computer has a way out to a peer (`direccion`: a socket address of the system's): a
// route, and an interface that is up and connected. It tells from its own tables and sends nothing.
bool haySalida(const void *direccion, std::size_t largo);

// What became of a name look-up: OtraVez when it failed for now or has found the name meanwhile, No
// when the name does not exist; EnCurso until it has ended.
enum class Busqueda { EnCurso, OtraVez, No };

// Looks a name up to its end, which may be long in coming; from any thread.
Busqueda buscar(const QByteArray &nombre);

} // namespace HttpClientSistema
