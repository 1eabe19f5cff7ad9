// SPDX-License-Identifier: MIT
// A query of the demonstration school, as the program asks it, and the reply's bytes.
#pragma once

#include "platform/HttpClient.h"

#include <QByteArray>

inline const HttpClient::Cabeceras cabecerasTexto = {
    {"Content-type", "application/x-www-form-urlencoded"},
    {"Content-length", "0"},
    {"Connection", "close"}};

inline const QByteArray consulta = "/querys/tessarin/tomarValor.php?idcolegio=123&campo=CDANE";
inline const QByteArray valor = "305001012345";
