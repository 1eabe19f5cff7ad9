// SPDX-License-Identifier: MIT
// The three kinds of image that pages show, each decoded by its own library.
#pragma once

#include "imagen.h"

#include <cstddef>
#include <cstdint>

// Beyond 100 million pixels, or 30,000 in one direction: no photo, and a burden to decode.
constexpr bool demasiadoGrande(std::int64_t ancho, std::int64_t alto)
{
    constexpr std::int64_t lado = 30'000;
    constexpr std::int64_t pixeles = 100'000'000;
    return ancho > lado || alto > lado || ancho * alto > pixeles;
}

// What a library that reads piece by piece has not asked for yet.
struct BytesDeImagen {
    const char *bytes;
    std::size_t quedan;
};

EstadoImagen estadoJpeg(const QByteArray &bytes);
EstadoImagen estadoPng(const QByteArray &bytes);
EstadoImagen estadoGif(const QByteArray &bytes);
