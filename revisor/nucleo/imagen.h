// SPDX-License-Identifier: MIT
// Whether an image is whole: it is decoded to its last line, and nothing of it is kept.
#pragma once

#include <QByteArray>

enum class EstadoImagen {
    Buena,
    Vacia,
    EsPagina, // HTML in place of an image
    Danada,   // no image, or one that ends early or has bytes that decode to nothing
    Enorme,   // more pixels than a photo has: not decoded
};

// JPEG, PNG and GIF by their own libraries, which are told to regard every complaint as an error;
// what else a browser shows by Qt's readers. Callable from several threads at once.
EstadoImagen estadoDeImagen(const QByteArray &bytes);
