// SPDX-License-Identifier: MIT
#include "worker/Dibujante.h"

#include "platform/arranque_linux.h"
#include "worker/memoria.h"
#include "worker/render/salida.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A renderer with an ordinary page takes an eighth of it.
constexpr std::uintmax_t memoriaMaxima = std::uintmax_t{1} << 30;

constexpr std::size_t largoDeTitulo = 255; // bytes, as the renderer cuts it

Dibujante::Fin finDeCodigo(int codigo)
{
    switch (codigo) {
    case salida::hecho:
        return {};
    case salida::sinPagina:
        return {"no se pudo cargar la página"};
    case salida::sinPdf:
        return {"no se pudo escribir el PDF"};
    case salida::motorCaido:
        return {"la página agotó el motor de dibujo", true};
    default: // a library that could not be loaded, an engine that gave up
        return {"el dibujante terminó con el código " + std::to_string(codigo), true};
    }
}

} // namespace

std::unique_ptr<Dibujante> Dibujante::nacer(const std::filesystem::path &programa)
{
    std::array<int, 2> par{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, par.data()) != 0)
        return nullptr;
    // It blocks none of the signals that the worker blocks and ignores for itself.
    const auto pid =
        arranque::lanzar(programa, {"--espera"}, environ, par[0], arranque::Aparte::Grupo);
    close(par[0]);
    if (!pid) {
        close(par[1]);
        return nullptr;
    }
    return std::unique_ptr<Dibujante>(new Dibujante(*pid, par[1]));
}

Dibujante::~Dibujante()
{
    close(m_zocalo);
    kill(-m_pid, SIGKILL);
    // The engine's helper processes become the worker's children when their parents die, and stay
    // in the group: once none of the group is left, nothing of this renderer is.
    while (waitpid(-m_pid, nullptr, 0) > 0 || errno == EINTR) {
    }
}

bool Dibujante::encargar(const Papel &papel, const std::string &html, const std::string &pdf,
                         Reloj::time_point tope)
{
    std::string pedido;
    for (const int largo :
         {papel.ancho, papel.alto, papel.izquierdo, papel.arriba, papel.derecho, papel.abajo})
        pedido += std::to_string(largo) + ' ';
    pedido += '\n' + html + '\n' + pdf + '\n';
    // What was written before has been read, and the longest order is a small part of what a socket
    // holds: this neither blocks nor stops half way.
    if (write(m_zocalo, pedido.data(), pedido.size()) != static_cast<ssize_t>(pedido.size()))
        return false;
    m_tope = tope;
    m_dicho.clear();
    return true;
}

std::optional<Dibujante::Fin> Dibujante::fin()
{
    const bool dibujada = ocupado() && leer();
    if (dibujada) {
        m_tope.reset();
        return Fin{.motivo = "", .sigue = true, .titulo = titulo()};
    }
    siginfo_t fin{};
    // WNOWAIT: while the process stays unreaped, no other can take its group's number.
    if (waitid(P_PID, static_cast<id_t>(m_pid), &fin, WEXITED | WNOHANG | WNOWAIT) != 0
        || fin.si_pid == 0)
        return {};
    if (fin.si_code == CLD_EXITED) {
        leer(); // what it has said of its page just before
        Fin suyo = finDeCodigo(fin.si_status);
        suyo.titulo = titulo();
        return suyo;
    }
    return Fin{"el dibujante murió por la señal " + std::to_string(fin.si_status), true};
}

// Takes what there is; true when the page is drawn and the process stays for another.
bool Dibujante::leer()
{
    // Room for one byte more than it may ever say: a renderer that goes on talking is not listened
    // to, and its page's time runs out.
    std::array<char, largoDeTitulo + 3> trozo{};
    ssize_t leidos = 0;
    while (m_dicho.size() < trozo.size()
           && (leidos = recv(m_zocalo, trozo.data(), trozo.size() - m_dicho.size(), MSG_DONTWAIT))
                  > 0)
        m_dicho.append(trozo.data(), static_cast<std::size_t>(leidos));
    return !m_dicho.empty() && m_dicho.back() == salida::listo
           && (m_dicho.size() == 1 || m_dicho[m_dicho.size() - 2] == salida::finDeTitulo);
}

std::string Dibujante::titulo() const
{
    const auto fin = m_dicho.find(salida::finDeTitulo);
    const auto deControl = [](char letra) {
        return static_cast<unsigned char>(letra) < 0x20 || letra == 0x7f;
    };
    // It comes from where pages run: what breaks the rules of a title is none. Where there is none
    // at all its end is farther than any length.
    if (fin > largoDeTitulo
        || std::any_of(m_dicho.begin(), m_dicho.begin() + static_cast<std::ptrdiff_t>(fin),
                       deControl))
        return {};
    return m_dicho.substr(0, fin);
}

bool Dibujante::desbordado() const
{
    return ocupado() && memoria::excede(m_pid, memoriaMaxima);
}
