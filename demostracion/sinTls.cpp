// SPDX-License-Identifier: MIT
// In place of canalTls.cpp and identidadTls.cpp where there is nothing to encrypt with: no identity
// can be made, and so there is never a channel either.
#include "demostracion/canalTls.h"
#include "demostracion/identidadTls.h"

#include <stdexcept>

namespace demo {

void BorraContexto::operator()(ssl_ctx_st *) const {}

IdentidadTls crearIdentidadTls(Vigencia)
{
    throw std::runtime_error("this demonstration school was built without TLS");
}

CanalTls::CanalTls(ssl_ctx_st *, zocalos::Zocalo) {}

CanalTls::~CanalTls() = default;

int CanalTls::saludar()
{
    return -1;
}

int CanalTls::leer(char *, int)
{
    return -1;
}

int CanalTls::escribir(const char *, int)
{
    return -1;
}

CanalTls::Falta CanalTls::falta(int) const
{
    return Falta::Nada;
}

void CanalTls::despedir() {}

} // namespace demo
