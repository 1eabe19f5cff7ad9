// SPDX-License-Identifier: MIT
// Long work that the computer should not interrupt.
#pragma once

#include <QString>

#include <memory>

// From its making to its end the computer does not go to sleep by itself, and whoever ends the
// session is asked first and shown `motivo`, a sentence in Spanish. The desktop is asked for that
// and never waited for; where it has no means to do it, nothing happens, and nothing says so. It
// ends with the process, too, however that ends. An application must exist, and its event loop
// turns now and then. Several at a time hold each for itself.
class Vigilia {
public:
    explicit Vigilia(const QString &motivo);
    ~Vigilia();
    Vigilia(const Vigilia &) = delete;
    Vigilia &operator=(const Vigilia &) = delete;

private:
    class Interno;
    Interno *d; // outlives this object until the desktop's last answer has come
};
