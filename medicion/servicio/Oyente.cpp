// SPDX-License-Identifier: MIT
#include "Oyente.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

#include <array>
#include <stdexcept>
#include <utility>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// Each may be holding a reply back or waiting for its client to close while the next one comes.
constexpr int hilos = 8;
constexpr std::size_t limiteDeCabecera = 64 * 1024;

// A connection's two ways of moving bytes.
class Canal {
public:
    Canal(int zocalo, ssl_ctx_st *tls) : m_zocalo(zocalo), m_ssl(tls ? SSL_new(tls) : nullptr)
    {
        const int si = 1;
        ::setsockopt(m_zocalo, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
        if (m_ssl)
            SSL_set_fd(m_ssl, m_zocalo);
    }
    ~Canal()
    {
        if (m_ssl)
            SSL_free(m_ssl);
        // The client has closed: a reset leaves nothing of the connection in the system's tables.
        const linger deInmediato = {1, 0};
        ::setsockopt(m_zocalo, SOL_SOCKET, SO_LINGER, &deInmediato, sizeof deInmediato);
        ::close(m_zocalo);
    }
    Canal(const Canal &) = delete;
    Canal &operator=(const Canal &) = delete;

    bool saludar() { return !m_ssl || SSL_accept(m_ssl) == 1; }

    long leer(char *donde, std::size_t cuanto)
    {
        return m_ssl ? SSL_read(m_ssl, donde, static_cast<int>(cuanto))
                     : static_cast<long>(::recv(m_zocalo, donde, cuanto, 0));
    }

    bool enviar(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const long n =
                m_ssl
                    ? SSL_write(m_ssl, bytes.data(), static_cast<int>(bytes.size()))
                    : static_cast<long>(::send(m_zocalo, bytes.data(), bytes.size(), MSG_NOSIGNAL));
            if (n <= 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(n));
        }
        return true;
    }

    // Returns when the client has closed its side.
    void esperarCierre()
    {
        std::array<char, 4096> resto;
        while (::recv(m_zocalo, resto.data(), resto.size(), 0) > 0) {
        }
    }

private:
    int m_zocalo;
    ssl_st *m_ssl;
};

// Up to and with the empty line; empty when the client went away before it.
std::string leerCabecera(Canal &canal)
{
    std::string bytes;
    std::array<char, 4096> trozo;
    while (bytes.find("\r\n\r\n") == bytes.npos && bytes.size() < limiteDeCabecera) {
        const long n = canal.leer(trozo.data(), trozo.size());
        if (n <= 0)
            return {};
        bytes.append(trozo.data(), static_cast<std::size_t>(n));
    }
    return bytes;
}

} // namespace

Oyente::Oyente(ssl_ctx_st *tls) : m_tls(tls), m_escucha(::socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in aqui = {};
    aqui.sin_family = AF_INET;
    aqui.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof aqui;
    auto *direccion = reinterpret_cast<sockaddr *>(&aqui);
    if (m_escucha < 0 || ::bind(m_escucha, direccion, largo) != 0
        || ::listen(m_escucha, SOMAXCONN) != 0 || ::getsockname(m_escucha, direccion, &largo) != 0)
        throw std::runtime_error("no loopback port to listen on");
    m_base =
        (tls ? "https://127.0.0.1:" : "http://127.0.0.1:") + std::to_string(ntohs(aqui.sin_port));
}

void Oyente::atender()
{
    for (int i = 0; i < hilos; ++i)
        m_hilos.emplace_back([this] { servir(); });
}

void Oyente::poner(std::shared_ptr<const EscuelaMedida> escuela)
{
    const std::lock_guard guardia(m_cerrojo);
    m_escuela = std::move(escuela);
}

std::vector<std::string> Oyente::tomarDirecciones()
{
    const std::lock_guard guardia(m_cerrojo);
    return std::exchange(m_direcciones, {});
}

void Oyente::servir()
{
    for (;;) {
        const int zocalo = ::accept4(m_escucha, nullptr, nullptr, SOCK_CLOEXEC);
        if (zocalo >= 0)
            atenderUna(zocalo);
    }
}

void Oyente::atenderUna(int zocalo)
{
    Canal canal(zocalo, m_tls);
    ERR_clear_error();
    if (!canal.saludar())
        return;
    const std::string cabecera = leerCabecera(canal);
    if (cabecera.empty())
        return;
    const std::string respuesta = mensaje(cabecera);
    if (const long long demora = m_demora)
        std::this_thread::sleep_for(std::chrono::milliseconds(demora));
    if (canal.enviar(respuesta))
        canal.esperarCierre();
}

std::string Oyente::mensaje(std::string_view cabecera)
{
    const auto desde = cabecera.find(' ') + 1;
    const std::string_view destino = cabecera.substr(desde, cabecera.find(' ', desde) - desde);
    std::shared_ptr<const EscuelaMedida> escuela;
    {
        const std::lock_guard guardia(m_cerrojo);
        escuela = m_escuela;
        m_direcciones.emplace_back(m_base).append(destino);
    }
    const auto respuesta = escuela->responder(destino);
    std::string mensaje =
        respuesta.estado == 200 ? "HTTP/1.1 200 OK\r\n" : "HTTP/1.1 404 Not Found\r\n";
    mensaje.reserve(respuesta.cuerpo.size() + 256);
    mensaje.append("Server: medida\r\nContent-Type: ").append(respuesta.tipo);
    mensaje.append("\r\nContent-Length: ").append(std::to_string(respuesta.cuerpo.size()));
    mensaje.append("\r\nConnection: close\r\n\r\n").append(respuesta.cuerpo);
    return mensaje;
}
