// SPDX-License-Identifier: MIT
// What a test asks the system of this process' memory.
#pragma once

#include <QtGlobal>

// The most memory that this process has ever held, in bytes; -1 when the system does not say.
qint64 memoriaMayor();

// Whether a large block that grows becomes another one, so that both are there for a moment.
bool crecerEsCopiar();
