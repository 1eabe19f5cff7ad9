// SPDX-License-Identifier: MIT
#include "herencia.h"

#include <QDir>
#include <QStringList>

#include <fcntl.h>
#include <linux/close_range.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

void herencia::nada()
{
    constexpr int primero = STDERR_FILENO + 1;
    if (::close_range(primero, ~0U, CLOSE_RANGE_CLOEXEC) == 0)
        return;
    // A kernel or a container without it: one by one.
    for (const QString &nombre : QDir(u"/proc/self/fd"_s).entryList(QDir::Files)) {
        const int descriptor = nombre.toInt();
        if (descriptor >= primero) {
            // Fails only for the one that this listing had open itself.
            [[maybe_unused]] const int hecho = ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
        }
    }
}
