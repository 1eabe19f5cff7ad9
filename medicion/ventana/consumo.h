// SPDX-License-Identifier: MIT
// What this process has used so far.
#pragma once

#include <QJsonObject>

namespace consumo {

// Seconds of processor time, the system's share included, of all threads.
double cpu();

// Memory in MB (of 2^20 bytes): "pss" its share of what is resident, "propia" what it has written
// itself (heap, stacks and the like), "rss" all that is resident, "rssMaxima" the most that ever
// was.
QJsonObject memoria();

// Seconds since the system was started, of the clock that other processes read as well.
double ahora();

} // namespace consumo
