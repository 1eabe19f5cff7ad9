// SPDX-License-Identifier: MIT
// What the tests of waiting requests share: how long, for whom, and a reply.
#pragma once

#include "ServidorGuion.h"
#include "platform/HttpClient.h"

#include <chrono>

// A wait in a script that would else never end.
inline constexpr std::chrono::seconds plazo(20);

inline HttpClient::Limites conSilencio(std::chrono::milliseconds silencio)
{
    HttpClient::Limites limites;
    limites.silencio = silencio;
    return limites;
}

// Answers a request, of which this is the head, with its own target.
inline void contestar(ServidorGuion::Charla &charla, const QByteArray &cabeza)
{
    const QByteArray destino = cabeza.split(' ').value(1);
    charla.enviar("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(destino.size())
                  + "\r\n\r\n" + destino);
}
