// SPDX-License-Identifier: MIT
// An open handle of the system's that is closed with its holder.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <utility>

class Manija {
public:
    Manija() = default;
    // Takes the handle over. Some calls give null where there is none, others
    // INVALID_HANDLE_VALUE: both hold none.
    explicit Manija(HANDLE valor) : m_valor(valor == INVALID_HANDLE_VALUE ? nullptr : valor) {}
    Manija(Manija &&otra) noexcept : m_valor(std::exchange(otra.m_valor, nullptr)) {}
    Manija &operator=(Manija &&otra) noexcept
    {
        std::swap(m_valor, otra.m_valor);
        return *this;
    }
    ~Manija()
    {
        // What was written is closed with cerrar(), which tells.
        [[maybe_unused]] const bool cerrada = cerrar();
    }

    // Stays this object's; null when it holds none.
    HANDLE valor() const { return m_valor; }
    explicit operator bool() const { return m_valor != nullptr; }

    // False when the system reports that it could not be closed in order.
    bool cerrar()
    {
        HANDLE valor = std::exchange(m_valor, nullptr);
        return !valor || ::CloseHandle(valor) != FALSE;
    }

private:
    HANDLE m_valor = nullptr;
};
