// SPDX-License-Identifier: MIT
#include "demostracion/canalTls.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

namespace demo {

CanalTls::CanalTls(ssl_ctx_st *contexto, zocalos::Zocalo zocalo) : m_ssl(SSL_new(contexto))
{
    SSL_set_fd(m_ssl, static_cast<int>(zocalo));
}

CanalTls::~CanalTls()
{
    SSL_free(m_ssl);
}

int CanalTls::saludar()
{
    ERR_clear_error();
    return SSL_accept(m_ssl);
}

int CanalTls::leer(char *donde, int cuanto)
{
    ERR_clear_error();
    return SSL_read(m_ssl, donde, cuanto);
}

int CanalTls::escribir(const char *bytes, int cuanto)
{
    ERR_clear_error();
    return SSL_write(m_ssl, bytes, cuanto);
}

CanalTls::Falta CanalTls::falta(int resultado) const
{
    switch (SSL_get_error(m_ssl, resultado)) {
    case SSL_ERROR_WANT_READ:
        return Falta::Lectura;
    case SSL_ERROR_WANT_WRITE:
        return Falta::Escritura;
    default:
        return Falta::Nada;
    }
}

void CanalTls::despedir()
{
    SSL_shutdown(m_ssl);
}

} // namespace demo
