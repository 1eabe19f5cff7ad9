// SPDX-License-Identifier: MIT
#include "senales.h"

#include <csignal>

// What is ignored stays so in a program that is started, unless its start sees to it. A browser
// must not get it, whose shell scripts would go on writing for ever into a pipe that is closed:
// QProcess puts the signal back. The print worker may get it: it ignores the signal itself, and
// gives its renderers all signals as they were.
void senales::sinTuberiaRota()
{
    // It is refused for numbers that are no signal's alone.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}
