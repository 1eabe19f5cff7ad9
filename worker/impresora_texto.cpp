// SPDX-License-Identifier: MIT
#include "worker/impresora.h"

#include <sstream>

namespace {

constexpr char signoHecho = '+';
constexpr char signoNegado = '-';
constexpr char signoAusente = '~';
constexpr char signoEmpezado = '#';

std::string enTexto(const impresora::Falla &falla)
{
    return (falla.ausente ? signoAusente : signoNegado) + falla.motivo;
}

} // namespace

std::string impresora::aTexto(const std::optional<Impresora> &impresora, const Falla &falla)
{
    if (!impresora)
        return enTexto(falla);
    const Papel &p = impresora->papel;
    std::ostringstream texto;
    texto << signoHecho << p.ancho << ' ' << p.alto << ' ' << p.izquierdo << ' ' << p.arriba << ' '
          << p.derecho << ' ' << p.abajo << ' ' << impresora->nombre << '\n'
          << impresora->instancia;
    return texto.str();
}

std::string impresora::aTexto(int trabajo, const Falla &falla)
{
    return trabajo > 0 ? signoHecho + std::to_string(trabajo) : enTexto(falla);
}

std::string impresora::empezadoATexto(int trabajo)
{
    return signoEmpezado + std::to_string(trabajo) + '\n';
}

impresora::Contestacion impresora::leer(const std::string &texto)
{
    Contestacion leida;
    std::size_t desde = 0;
    while (desde < texto.size() && texto[desde] == signoEmpezado) {
        const auto fin = texto.find('\n', desde);
        if (fin == std::string::npos)
            return leida;
        std::istringstream(texto.substr(desde + 1, fin - desde - 1)) >> leida.empezado;
        desde = fin + 1;
    }
    if (desde == texto.size())
        return leida;
    if (texto[desde] == signoHecho)
        leida.clase = Contestacion::Clase::Hecho;
    else if (texto[desde] == signoNegado)
        leida.clase = Contestacion::Clase::Negado;
    leida.contenido = texto.substr(desde + 1);
    return leida;
}

std::optional<Impresora> impresora::deTexto(const std::string &contenido)
{
    std::istringstream campos(contenido);
    Impresora leida;
    Papel &p = leida.papel;
    campos >> p.ancho >> p.alto >> p.izquierdo >> p.arriba >> p.derecho >> p.abajo;
    campos.ignore(1);
    std::getline(campos, leida.nombre);
    std::getline(campos, leida.instancia);
    return leida.nombre.empty() ? std::nullopt : std::optional(leida);
}
