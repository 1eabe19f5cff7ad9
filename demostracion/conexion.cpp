// SPDX-License-Identifier: MIT
#include "demostracion/conexion.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int limiteCabecera = 64 * 1024;
constexpr int sinLimite = -1;
constexpr int cortesia = 1000; // milliseconds left to a client that does not close its side

} // namespace

namespace demo {

Conexion::Conexion(int zocalo, int parada, ssl_ctx_st *tls) : m_zocalo(zocalo), m_parada(parada)
{
    fcntl(m_zocalo, F_SETFL, fcntl(m_zocalo, F_GETFL) | O_NONBLOCK);
    const int si = 1;
    setsockopt(m_zocalo, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
    if (tls) {
        m_ssl = SSL_new(tls);
        SSL_set_fd(m_ssl, m_zocalo);
    }
}

Conexion::~Conexion()
{
    if (m_ssl)
        SSL_free(m_ssl);
    close(m_zocalo);
}

bool Conexion::lista(short sucesos, int milisegundos)
{
    pollfd esperas[] = {{m_zocalo, sucesos, 0}, {m_parada, POLLIN, 0}};
    int n = 0;
    do
        n = poll(esperas, 2, milisegundos);
    while (n < 0 && errno == EINTR);
    return n > 0 && esperas[1].revents == 0;
}

// OpenSSL says in which direction it is stuck; waits for that direction.
bool Conexion::reintentar(int resultado)
{
    switch (SSL_get_error(m_ssl, resultado)) {
    case SSL_ERROR_WANT_READ:
        return lista(POLLIN, sinLimite);
    case SSL_ERROR_WANT_WRITE:
        return lista(POLLOUT, sinLimite);
    default:
        return false;
    }
}

bool Conexion::saludar()
{
    if (!m_ssl)
        return true;
    for (;;) {
        ERR_clear_error();
        const int n = SSL_accept(m_ssl);
        if (n == 1)
            return true;
        if (!reintentar(n))
            return false;
    }
}

qsizetype Conexion::leer(char *donde, int cuanto)
{
    for (;;) {
        if (m_ssl) {
            ERR_clear_error();
            const int n = SSL_read(m_ssl, donde, cuanto);
            if (n > 0 || !reintentar(n))
                return n;
        } else {
            const ssize_t n = recv(m_zocalo, donde, static_cast<size_t>(cuanto), 0);
            if (n >= 0 || (errno != EAGAIN && errno != EINTR) || !lista(POLLIN, sinLimite))
                return n;
        }
    }
}

QByteArray Conexion::leerCabecera()
{
    QByteArray bytes;
    char trozo[4096];
    while (bytes.size() < limiteCabecera) {
        const qsizetype n = leer(trozo, sizeof trozo);
        if (n <= 0)
            return {};
        bytes.append(trozo, n);
        const qsizetype fin = bytes.indexOf("\r\n\r\n");
        if (fin >= 0)
            return bytes.left(fin + 4);
    }
    return {};
}

bool Conexion::enviar(const QByteArray &bytes)
{
    const char *donde = bytes.constData();
    qsizetype falta = bytes.size();
    while (falta > 0) {
        qsizetype n = 0;
        if (m_ssl) {
            ERR_clear_error();
            n = SSL_write(m_ssl, donde, static_cast<int>(falta));
            if (n <= 0 && !reintentar(static_cast<int>(n)))
                return false;
        } else {
            n = send(m_zocalo, donde, static_cast<size_t>(falta), MSG_NOSIGNAL);
            if (n < 0 && ((errno != EAGAIN && errno != EINTR) || !lista(POLLOUT, sinLimite)))
                return false;
        }
        if (n > 0) {
            donde += n;
            falta -= n;
        }
    }
    return true;
}

// Closing at once would reset the connection if the client had sent anything more, and a reset
// can overtake the reply: so the writing side ends first and the client closes.
void Conexion::despedir()
{
    if (m_ssl)
        SSL_shutdown(m_ssl);
    shutdown(m_zocalo, SHUT_WR);
    char resto[4096];
    while (lista(POLLIN, cortesia) && recv(m_zocalo, resto, sizeof resto, 0) > 0) {
    }
}

bool Conexion::esperar(std::chrono::milliseconds tiempo)
{
    pollfd espera{m_parada, POLLIN, 0};
    int n = 0;
    do
        n = poll(&espera, 1, static_cast<int>(tiempo.count()));
    while (n < 0 && errno == EINTR);
    return n == 0;
}

void Conexion::esperarFin()
{
    char resto[4096];
    while (lista(POLLIN, sinLimite)) {
        const ssize_t n = recv(m_zocalo, resto, sizeof resto, 0);
        if (n == 0 || (n < 0 && errno != EAGAIN && errno != EINTR))
            return;
    }
}

} // namespace demo
