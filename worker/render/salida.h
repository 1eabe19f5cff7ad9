// SPDX-License-Identifier: MIT
// How a renderer tells the worker what became of its page: by its exit code; or, when the page is
// drawn and it could draw another, by a byte on the socket that its order came through. Before
// either, the title of a page that has one goes through that socket, as a line.
#pragma once

namespace salida {

constexpr int hecho = 0;
constexpr int malUso = 2;
constexpr int sinPagina = 3;  // the document could not be loaded
constexpr int sinPdf = 4;     // the PDF could not be written
constexpr int motorCaido = 5; // the page's process died, out of memory most likely

constexpr char listo = '+';
constexpr char finDeTitulo = '\n';

} // namespace salida
