// What the HTTP client asks of its operating system.
#pragma once

namespace HttpClientSistema {

// Once, before the first request: a connection that the peer has closed must be an error of its
// request, never a signal that ends the program.
void preparar();

// A connection must not be inherited by a program started while it is open: it would stay open
// for as long as that program lives.
void noHeredar(int conexion);

} // namespace HttpClientSistema
