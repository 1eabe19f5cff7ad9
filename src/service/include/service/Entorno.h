// SPDX-License-Identifier: MIT
// What every procedure needs: the service, the disk, the session, the window's progress. Made
// once by main (or by a test) and handed inwards; all that it refers to is borrowed and must
// outlive it.
#pragma once

#include "platform/DriveC.h"
#include "platform/HttpClient.h"
#include "service/azar.h"
#include "session/Module1.h"
#include "session/Progreso.h"

#include <QString>

#include <chrono>
#include <functional>

struct Entorno {
    QString ServiceBase; // scheme and host, without a trailing slash
    HttpClient &http;
    DriveC &disco;
    Azar &azar;
    std::function<void(std::chrono::milliseconds)> pausa; // after each file download
    Module1 &sesion;
    Progreso &progreso;
};
