// SPDX-License-Identifier: MIT
#include "worker/render/Pasarela.h"

#include "worker/render/socks.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <curl/curl.h>
#include <memory>
#include <netinet/in.h>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Bloque = std::array<char, 16384>;

struct Soltar {
    void operator()(CURL *servicio) const { curl_easy_cleanup(servicio); }
};
using Servicio = std::unique_ptr<CURL, Soltar>;

// The window's own client reaches the service through the proxy that these variables name; so does
// a page. Nothing of a page's request is seen by this client: it makes the connection only.
const char *proxyDelUsuario(bool cifrado)
{
    using Nombres = std::vector<const char *>;
    const Nombres nombres = cifrado
                                ? Nombres{"https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"}
                                : Nombres{"http_proxy", "all_proxy", "ALL_PROXY"};
    for (const char *nombre : nombres) {
        const char *valor = std::getenv(nombre);
        if (valor && *valor)
            return valor;
    }
    return nullptr;
}

Servicio conectado(const std::string &host, std::uint16_t puerto, bool cifrado)
{
    Servicio servicio(curl_easy_init());
    if (!servicio)
        return nullptr;
    const bool numerico = host.find(':') != std::string::npos;
    // TLS is spoken by the engine, from end to end, whatever the service's scheme is.
    const std::string destino =
        "http://" + (numerico ? '[' + host + ']' : host) + ':' + std::to_string(puerto) + '/';
    const char *proxy = proxyDelUsuario(cifrado);
    CURL *easy = servicio.get();
    const bool bien = curl_easy_setopt(easy, CURLOPT_URL, destino.c_str()) == CURLE_OK
                      && curl_easy_setopt(easy, CURLOPT_CONNECT_ONLY, 1L) == CURLE_OK
                      && curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L) == CURLE_OK
                      && curl_easy_setopt(easy, CURLOPT_HTTPPROXYTUNNEL, 1L) == CURLE_OK
                      && curl_easy_setopt(easy, CURLOPT_PROXY, proxy ? proxy : "") == CURLE_OK
                      && curl_easy_perform(easy) == CURLE_OK;
    return bien ? std::move(servicio) : nullptr;
}

int descriptor(CURL *servicio)
{
    curl_socket_t hallado = -1;
    // Without one there is nothing to wait for, and the next step fails.
    [[maybe_unused]] const CURLcode dicho =
        curl_easy_getinfo(servicio, CURLINFO_ACTIVESOCKET, &hallado);
    return hallado;
}

bool alServicio(CURL *servicio, std::string_view datos)
{
    while (!datos.empty()) {
        std::size_t enviados = 0;
        const CURLcode dicho = curl_easy_send(servicio, datos.data(), datos.size(), &enviados);
        if (dicho == CURLE_AGAIN) {
            pollfd espera{descriptor(servicio), POLLOUT, 0};
            if (poll(&espera, 1, -1) < 0 && errno != EINTR)
                return false;
        } else if (dicho != CURLE_OK) {
            return false;
        }
        datos.remove_prefix(enviados);
    }
    return true;
}

// False when one of the two has gone.
bool delServicio(CURL *servicio, int cliente)
{
    Bloque bloque;
    std::size_t leidos = 0;
    const CURLcode dicho = curl_easy_recv(servicio, bloque.data(), bloque.size(), &leidos);
    if (dicho == CURLE_AGAIN)
        return true;
    return dicho == CURLE_OK && leidos > 0 && socks::escribir(cliente, {bloque.data(), leidos});
}

void acarrear(CURL *servicio, int cliente)
{
    Bloque bloque;
    std::array<pollfd, 2> fuentes{pollfd{cliente, POLLIN, 0},
                                  pollfd{descriptor(servicio), POLLIN, 0}};
    for (;;) {
        if (poll(fuentes.data(), fuentes.size(), -1) < 0) {
            if (errno == EINTR)
                continue;
            return;
        }
        if (fuentes[0].revents != 0) {
            const ssize_t leidos = read(cliente, bloque.data(), bloque.size());
            if (leidos < 0 && errno == EINTR)
                continue;
            if (leidos <= 0
                || !alServicio(servicio, {bloque.data(), static_cast<std::size_t>(leidos)}))
                return;
        }
        if (fuentes[1].revents != 0 && !delServicio(servicio, cliente))
            return;
    }
}

int oyenteLocal(std::uint16_t &puerto)
{
    sockaddr_in direccion{};
    direccion.sin_family = AF_INET;
    direccion.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof direccion;
    auto *general = reinterpret_cast<sockaddr *>(&direccion);
    const int oyente = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (oyente < 0 || bind(oyente, general, largo) != 0 || listen(oyente, SOMAXCONN) != 0
        || getsockname(oyente, general, &largo) != 0) {
        if (oyente >= 0)
            close(oyente);
        return -1;
    }
    puerto = ntohs(direccion.sin_port);
    return oyente;
}

} // namespace

Pasarela::Pasarela(const std::optional<Origen> &origen)
{
    if (origen) {
        m_host = origen->host().toStdString();
        m_puertoServicio = static_cast<std::uint16_t>(origen->puerto());
        m_cifrado = origen->cifrado();
    }
    curl_global_init(CURL_GLOBAL_DEFAULT);
    const int oyente = oyenteLocal(m_puerto);
    if (oyente >= 0)
        std::thread(&Pasarela::escuchar, this, oyente).detach();
}

void Pasarela::cortar()
{
    const std::lock_guard guardia(m_cerrojo);
    m_cortada = true;
    for (const int cliente : m_clientes)
        shutdown(cliente, SHUT_RDWR);
}

void Pasarela::admitir()
{
    const std::lock_guard guardia(m_cerrojo);
    m_cortada = false;
}

void Pasarela::escuchar(int oyente)
{
    for (;;) {
        const int cliente = accept4(oyente, nullptr, nullptr, SOCK_CLOEXEC);
        if (cliente >= 0)
            encargar(cliente);
        else if (errno != EINTR && errno != ECONNABORTED)
            usleep(100'000); // no descriptor is free: those in use come to an end
    }
}

// A thread that cannot be had costs the connection, not the page.
void Pasarela::encargar(int cliente)
{
    try {
        std::thread(&Pasarela::atender, this, cliente).detach();
    } catch (const std::system_error &) {
        close(cliente);
    }
}

void Pasarela::atender(int cliente)
{
    bool admitido = false;
    {
        const std::lock_guard guardia(m_cerrojo);
        admitido = !m_cortada && m_clientes.insert(cliente).second;
    }
    if (admitido)
        transportar(cliente);
    const std::lock_guard guardia(m_cerrojo);
    m_clientes.erase(cliente);
    close(cliente);
}

void Pasarela::transportar(int cliente)
{
    const auto destino = socks::pedido(cliente);
    if (!destino)
        return;
    if (m_host.empty() || destino->host != m_host || destino->puerto != m_puertoServicio) {
        socks::responder(cliente, socks::Respuesta::Prohibido);
        return;
    }
    const Servicio servicio = conectado(m_host, m_puertoServicio, m_cifrado);
    if (!servicio) {
        socks::responder(cliente, socks::Respuesta::Inalcanzable);
        return;
    }
    if (socks::responder(cliente, socks::Respuesta::Hecho))
        acarrear(servicio.get(), cliente);
}
