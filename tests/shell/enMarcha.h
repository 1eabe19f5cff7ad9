// SPDX-License-Identifier: MIT
// Whether one of the programs, started by a test, has got as far as its window.
#pragma once

#include <QtGlobal>

// `pid`: the process. An error that it shows in a box is no window of its.
bool enMarcha(qint64 pid);
