// SPDX-License-Identifier: MIT
#include "demostracion/conexion.h"

#include <array>

using zocalos::ahoraNo;
using zocalos::sinLimite;

namespace {

constexpr int limiteCabecera = 64 * 1024;
constexpr int cortesia = 1000; // milliseconds left to a client that does not close its side

} // namespace

namespace demo {

Conexion::Conexion(zocalos::Zocalo zocalo, zocalos::Zocalo parada, ssl_ctx_st *tls)
    : m_zocalo(zocalo), m_parada(parada)
{
    zocalos::noBloquear(m_zocalo);
    zocalos::noDemorar(m_zocalo);
    if (tls)
        m_tls.emplace(tls, m_zocalo);
}

Conexion::~Conexion()
{
    m_tls.reset();
    zocalos::cerrar(m_zocalo);
}

bool Conexion::lista(bool escribir, int milisegundos)
{
    std::array<zocalos::Espera, 2> esperas = {
        {{.zocalo = m_zocalo, .escribir = escribir}, {.zocalo = m_parada}}};
    return zocalos::esperar(esperas, milisegundos) && !esperas[1].lista;
}

bool Conexion::legible(int milisegundos)
{
    return lista(false, milisegundos);
}

bool Conexion::escribible()
{
    return lista(true, sinLimite);
}

// TLS says in which direction it is stuck; waits for that direction.
bool Conexion::reintentar(int resultado)
{
    switch (m_tls->falta(resultado)) {
    case CanalTls::Falta::Lectura:
        return legible(sinLimite);
    case CanalTls::Falta::Escritura:
        return escribible();
    case CanalTls::Falta::Nada:
        break;
    }
    return false;
}

bool Conexion::saludar()
{
    if (!m_tls)
        return true;
    for (;;) {
        const int n = m_tls->saludar();
        if (n == 1)
            return true;
        if (!reintentar(n))
            return false;
    }
}

qsizetype Conexion::leer(char *donde, int cuanto)
{
    for (;;) {
        if (m_tls) {
            const int n = m_tls->leer(donde, cuanto);
            if (n > 0 || !reintentar(n))
                return n;
        } else {
            const qsizetype n = zocalos::recibir(m_zocalo, donde, cuanto);
            if (n != ahoraNo || !legible(sinLimite))
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
        if (m_tls) {
            n = m_tls->escribir(donde, static_cast<int>(falta));
            if (n <= 0 && !reintentar(static_cast<int>(n)))
                return false;
        } else {
            n = zocalos::enviar(m_zocalo, donde, falta);
            if (n < 0 && (n != ahoraNo || !escribible()))
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
    if (m_tls)
        m_tls->despedir();
    zocalos::terminarEnvio(m_zocalo);
    char resto[4096];
    while (legible(cortesia) && zocalos::recibir(m_zocalo, resto, sizeof resto) > 0) {
    }
}

bool Conexion::esperar(std::chrono::milliseconds tiempo)
{
    zocalos::Espera espera = {.zocalo = m_parada};
    return !zocalos::esperar({&espera, 1}, static_cast<int>(tiempo.count()));
}

void Conexion::esperarFin()
{
    char resto[4096];
    while (legible(sinLimite)) {
        const qsizetype n = zocalos::recibir(m_zocalo, resto, sizeof resto);
        if (n == 0 || (n < 0 && n != ahoraNo))
            return;
    }
}

} // namespace demo
