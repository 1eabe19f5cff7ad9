// SPDX-License-Identifier: MIT
// The encryption of one connection of the demonstration service, over a socket that does not block.
#pragma once

#include "demostracion/zocalos.h"

struct ssl_ctx_st;
struct ssl_st;

namespace demo {

class CanalTls {
public:
    // Both are borrowed, and must outlive the object.
    CanalTls(ssl_ctx_st *contexto, zocalos::Zocalo zocalo);
    ~CanalTls();
    CanalTls(const CanalTls &) = delete;
    CanalTls &operator=(const CanalTls &) = delete;

    // Each gives more than 0 (how many bytes, where some are to be moved) when it is done;
    // otherwise falta() tells, of that number, what the socket must be ready for before the same
    // is tried again.
    int saludar();
    int leer(char *donde, int cuanto);
    int escribir(const char *bytes, int cuanto);

    enum class Falta { Lectura, Escritura, Nada }; // Nada: it has ended, or is broken
    Falta falta(int resultado) const;

    // Says that nothing more will come.
    void despedir();

private:
    ssl_st *m_ssl = nullptr;
};

} // namespace demo
