// SPDX-License-Identifier: MIT
#include "worker/Cola.h"

#include <algorithm>
#include <cassert>
#include <utility>

Cola::Cola(std::size_t adelanto) : m_adelanto(adelanto) {}

void Cola::agregar(std::string ruta, Momento llegada)
{
    Documento documento;
    documento.turno = m_siguiente++;
    documento.ruta = std::move(ruta);
    documento.llegada = llegada;
    m_documentos.push_back(std::move(documento));
}

const Cola::Documento *Cola::porDibujar() const
{
    const auto limite = std::min(m_adelanto, m_documentos.size());
    for (std::size_t i = 0; i < limite; ++i) {
        if (m_documentos[i].estado == Estado::EnEspera)
            return &m_documentos[i];
    }
    return nullptr;
}

void Cola::empezado(Turno turno)
{
    con(turno).estado = Estado::Dibujando;
}

void Cola::dibujado(Turno turno, std::string pdf, std::string titulo)
{
    Documento &documento = con(turno);
    documento.estado = Estado::Dibujado;
    documento.pdf = std::move(pdf);
    documento.titulo = std::move(titulo);
}

void Cola::fallido(Turno turno, std::string motivo)
{
    Documento &documento = con(turno);
    documento.estado = Estado::Fallido;
    documento.motivo = std::move(motivo);
}

bool Cola::redibujar(Turno turno)
{
    Documento &documento = con(turno);
    if (documento.repetido)
        return false;
    documento.repetido = true;
    documento.estado = Estado::EnEspera;
    return true;
}

void Cola::enDuda(Turno turno, int trabajo)
{
    con(turno).trabajo = trabajo;
}

std::vector<std::string> Cola::abandonar(Momento hasta, const std::string &motivo)
{
    std::vector<std::string> sobrantes;
    for (Documento &documento : m_documentos) {
        if (documento.llegada > hasta)
            break; // in order of arrival
        if (documento.estado == Estado::Dibujando || documento.estado == Estado::Fallido)
            continue;
        if (!documento.pdf.empty())
            sobrantes.push_back(documento.pdf);
        fallido(documento.turno, documento.trabajo == 0
                                     ? motivo
                                     : motivo + " (puede estar en la cola como trabajo "
                                           + std::to_string(documento.trabajo) + ")");
    }
    return sobrantes;
}

const Cola::Documento *Cola::primero() const
{
    if (m_documentos.empty())
        return nullptr;
    const Documento &cabeza = m_documentos.front();
    const bool resuelto = cabeza.estado == Estado::Dibujado || cabeza.estado == Estado::Fallido;
    return resuelto ? &cabeza : nullptr;
}

const std::string &Cola::rutaPrimera() const
{
    assert(!m_documentos.empty());
    return m_documentos.front().ruta;
}

std::string Cola::retirar()
{
    assert(!m_documentos.empty());
    std::string ruta = std::move(m_documentos.front().ruta);
    m_documentos.pop_front();
    return ruta;
}

std::size_t Cola::enEspera() const
{
    return static_cast<std::size_t>(
        std::count_if(m_documentos.begin(), m_documentos.end(),
                      [](const Documento &d) { return d.estado == Estado::EnEspera; }));
}

Cola::Documento &Cola::con(Turno turno)
{
    // Turns are consecutive and only the head is ever taken out.
    assert(!m_documentos.empty() && turno >= m_documentos.front().turno);
    return m_documentos.at(static_cast<std::size_t>(turno - m_documentos.front().turno));
}
