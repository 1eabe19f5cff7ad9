// SPDX-License-Identifier: MIT
// In the way of the library that speaks HTTP: functions of its names, which the client finds before
// the library's own. They hand on what they are not told to refuse.
#pragma once

#include <set>
#include <string_view>
#include <vector>

#include <curl/curl.h>

namespace estorbos {

// What is refused.
enum class Negada { Nada, Opcion, Manija, Motor, Comun, Cabecera, Entrada, OpcionDelMotor };
inline Negada negada = Negada::Nada;
inline CURLoption opcionNegada = CURLOPT_LASTENTRY;
inline CURLMoption opcionDelMotorNegada = CURLMOPT_LASTENTRY;
// Those that have been asked for, refused or not.
inline std::set<CURLoption> opcionesPuestas;

// Those that no request may go out without on this system.
std::vector<CURLoption> deProteccion();

inline bool seNiega(CURLoption opcion)
{
    opcionesPuestas.insert(opcion);
    return negada == Negada::Opcion && opcion == opcionNegada;
}
inline bool seNiega(CURLMoption opcion)
{
    return negada == Negada::OpcionDelMotor && opcion == opcionDelMotorNegada;
}
inline bool seNiegaCabecera(std::string_view texto)
{
    return negada == Negada::Cabecera && texto.starts_with("X-Segunda");
}

} // namespace estorbos
