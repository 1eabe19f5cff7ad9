// SPDX-License-Identifier: MIT
#include "worker/render/socks.h"

#include <array>
#include <cerrno>
#include <sys/socket.h>

namespace {

constexpr unsigned char version = 5;
constexpr unsigned char conectar = 1;
constexpr unsigned char porNombre = 3;

bool leer(int cliente, unsigned char *destino, std::size_t cuantos)
{
    while (cuantos > 0) {
        const ssize_t leidos = recv(cliente, destino, cuantos, 0);
        if (leidos < 0 && errno == EINTR)
            continue;
        if (leidos <= 0)
            return false;
        destino += leidos;
        cuantos -= static_cast<std::size_t>(leidos);
    }
    return true;
}

// A name is compared byte by byte, and the service's own is in lower case.
std::string enMinusculas(std::string texto)
{
    for (char &letra : texto)
        if (letra >= 'A' && letra <= 'Z')
            letra = static_cast<char>(letra - 'A' + 'a');
    return texto;
}

bool saludo(int cliente)
{
    std::array<unsigned char, 2> cabeza{};
    std::array<unsigned char, 255> maneras{};
    return leer(cliente, cabeza.data(), cabeza.size()) && cabeza[0] == version
           && leer(cliente, maneras.data(), cabeza[1])
           && socks::escribir(cliente, std::string_view("\x05\x00", 2));
}

} // namespace

std::optional<socks::Destino> socks::pedido(int cliente)
{
    std::array<unsigned char, 5> cabeza{};
    if (!saludo(cliente) || !leer(cliente, cabeza.data(), cabeza.size()) || cabeza[0] != version
        || cabeza[1] != conectar || cabeza[3] != porNombre)
        return {};
    std::array<unsigned char, 257> resto{};
    const std::size_t largo = cabeza[4];
    if (!leer(cliente, resto.data(), largo + 2))
        return {};
    return Destino{
        enMinusculas({resto.begin(), resto.begin() + static_cast<std::ptrdiff_t>(largo)}),
        static_cast<std::uint16_t>(resto[largo] << 8 | resto[largo + 1])};
}

bool socks::responder(int cliente, Respuesta respuesta)
{
    std::string dicho("\x05\0\0\x01\0\0\0\0\0\0", 10); // the address that it speaks of is of no use
    dicho[1] = static_cast<char>(respuesta);
    return escribir(cliente, dicho);
}

bool socks::escribir(int cliente, std::string_view datos)
{
    while (!datos.empty()) {
        const ssize_t escritos = send(cliente, datos.data(), datos.size(), MSG_NOSIGNAL);
        if (escritos < 0 && errno == EINTR)
            continue;
        if (escritos <= 0)
            return false;
        datos.remove_prefix(static_cast<std::size_t>(escritos));
    }
    return true;
}
