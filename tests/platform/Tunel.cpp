// SPDX-License-Identifier: MIT
#include "Tunel.h"

#include <QMutexLocker>

#include <algorithm>
#include <array>

namespace {

constexpr int cortesia = 10000; // milliseconds for an end that does not read

// What is there to read, sent on and noted. False: one end has gone away.
bool pasar(zocalos::Zocalo desde, zocalos::Zocalo hacia, QByteArray &anotado)
{
    std::array<char, 16384> trozo;
    const qsizetype leidos = zocalos::recibir(desde, trozo.data(), trozo.size());
    if (leidos <= 0)
        return leidos == zocalos::ahoraNo;
    anotado.append(trozo.data(), leidos);
    qsizetype enviados = 0;
    while (enviados < leidos) {
        const qsizetype esta = zocalos::enviar(hacia, trozo.data() + enviados, leidos - enviados);
        zocalos::Espera espera = {.zocalo = hacia, .escribir = true};
        if (esta < 0 && (esta != zocalos::ahoraNo || !zocalos::esperar({&espera, 1}, cortesia)))
            return false;
        enviados += std::max<qsizetype>(esta, 0);
    }
    return true;
}

} // namespace

Tunel::Tunel(int puerto)
    : m_servidor([this, puerto](ServidorGuion::Charla &charla) { servir(charla, puerto); })
{
}

QList<Tunel::Paso> Tunel::pasos() const
{
    const QMutexLocker guardia(&m_cerrojo);
    return m_pasos;
}

void Tunel::servir(ServidorGuion::Charla &charla, int puerto)
{
    Paso paso;
    paso.peticion = charla.leerCabeza();
    const zocalos::Zocalo servidor = zocalos::conectar(puerto);
    if (servidor == zocalos::ninguno)
        return;
    zocalos::noBloquear(servidor);
    charla.enviar("HTTP/1.1 200 Connection established\r\n\r\n");
    bool sigue = true;
    while (sigue) {
        std::array<zocalos::Espera, 2> esperas = {
            {{.zocalo = charla.conexion}, {.zocalo = servidor}}};
        sigue = charla.esperar(esperas);
        if (sigue && esperas[0].lista)
            sigue = pasar(charla.conexion, servidor, paso.delCliente);
        if (sigue && esperas[1].lista)
            sigue = pasar(servidor, charla.conexion, paso.delServidor);
    }
    zocalos::cerrar(servidor);
    const QMutexLocker guardia(&m_cerrojo);
    m_pasos.append(paso);
}
