// SPDX-License-Identifier: MIT
// An open file descriptor that is closed with its holder.
#pragma once

#include <utility>

#include <unistd.h>

class Descriptor {
public:
    Descriptor() = default;
    // Takes the descriptor over; a negative number, as a failed open gives it, holds none.
    explicit Descriptor(int numero) : m_numero(numero) {}
    Descriptor(Descriptor &&otro) noexcept : m_numero(std::exchange(otro.m_numero, -1)) {}
    Descriptor &operator=(Descriptor &&otro) noexcept
    {
        std::swap(m_numero, otro.m_numero);
        return *this;
    }
    ~Descriptor()
    {
        // What was written is closed with cerrar(), which tells.
        [[maybe_unused]] const bool cerrado = cerrar();
    }

    // Stays this object's; -1 when it holds none.
    int numero() const { return m_numero; }
    explicit operator bool() const { return m_numero >= 0; }

    // False when the system reports that something written did not reach its place.
    bool cerrar()
    {
        const int numero = std::exchange(m_numero, -1);
        return numero < 0 || ::close(numero) == 0;
    }

    // Hands the descriptor to somebody else who closes it.
    int soltar() { return std::exchange(m_numero, -1); }

private:
    int m_numero = -1;
};
