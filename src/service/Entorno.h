// What every procedure needs to reach the service and the disk. Made once by main (or by a
// test) and handed inwards; it owns nothing.
#pragma once

#include "platform/DriveC.h"
#include "platform/HttpClient.h"
#include "service/azar.h"

#include <QString>

#include <chrono>
#include <functional>

struct Entorno {
    QString ServiceBase; // scheme and host, without a trailing slash
    HttpClient &http;
    DriveC &disco;
    Azar &azar;
    std::function<void(std::chrono::milliseconds)> pausa; // after each file download
};
