// SPDX-License-Identifier: MIT
#include "ServidorGuion.h"

#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <vector>

QByteArray ServidorGuion::Charla::leerCabeza()
{
    QByteArray cabeza;
    while (!cabeza.contains("\r\n\r\n")) {
        const QByteArray mas = leer();
        if (mas.isEmpty())
            break;
        cabeza += mas;
    }
    const QMutexLocker guardia(&m_servidor.m_cerrojo);
    m_servidor.m_cabezas.append(cabeza);
    return cabeza;
}

QByteArray ServidorGuion::Charla::leer()
{
    std::array<char, 16384> trozo;
    zocalos::Espera espera = {.zocalo = conexion};
    qsizetype leidos = 0;
    do
        leidos = zocalos::recibir(conexion, trozo.data(), trozo.size());
    while (leidos == zocalos::ahoraNo && esperar({&espera, 1}));
    return leidos > 0 ? QByteArray(trozo.data(), leidos) : QByteArray();
}

void ServidorGuion::Charla::enviar(const QByteArray &bytes)
{
    zocalos::Espera espera = {.zocalo = conexion, .escribir = true};
    qsizetype enviados = 0;
    while (enviados < bytes.size()) {
        const qsizetype esta =
            zocalos::enviar(conexion, bytes.constData() + enviados, bytes.size() - enviados);
        if (esta == zocalos::ahoraNo && esperar({&espera, 1}))
            continue;
        if (esta <= 0)
            return; // the client has had enough
        enviados += esta;
    }
}

void ServidorGuion::Charla::terminar()
{
    zocalos::terminarEnvio(conexion);
}

bool ServidorGuion::Charla::clienteCierra(std::chrono::milliseconds tiempo)
{
    const auto fin = std::chrono::steady_clock::now() + tiempo;
    for (;;) {
        const auto resta = std::chrono::duration_cast<std::chrono::milliseconds>(
            fin - std::chrono::steady_clock::now());
        zocalos::Espera espera = {.zocalo = conexion};
        if (resta.count() <= 0 || !esperar({&espera, 1}, static_cast<int>(resta.count())))
            return false;
        if (leer().isEmpty())
            return true;
    }
}

bool ServidorGuion::Charla::esperar(std::span<zocalos::Espera> esperas, int milisegundos)
{
    std::vector<zocalos::Espera> todas(esperas.begin(), esperas.end());
    todas.push_back({.zocalo = m_servidor.m_parada.zocalo()});
    const bool hay = zocalos::esperar(todas, milisegundos) && !todas.back().lista;
    std::copy_n(todas.begin(), esperas.size(), esperas.begin());
    return hay;
}

ServidorGuion::ServidorGuion(const Guion &guion, const char *direccion)
    : m_guion(guion), m_direccion(direccion)
{
    abrir();
}

ServidorGuion::ServidorGuion(const QByteArray &respuesta)
    : ServidorGuion([respuesta](Charla &charla) {
          charla.leerCabeza();
          charla.enviar(respuesta);
          charla.terminar();
          charla.clienteCierra();
      })
{
}

ServidorGuion::~ServidorGuion()
{
    m_parada.dar();
    m_oyente.join();
    for (std::thread &hilo : m_hilos)
        hilo.join();
    zocalos::cerrar(m_oido);
}

QByteArray ServidorGuion::base() const
{
    return "http://" + m_direccion + ':' + QByteArray::number(m_puerto);
}

QList<QByteArray> ServidorGuion::cabezas() const
{
    const QMutexLocker guardia(&m_cerrojo);
    return m_cabezas;
}

QList<QByteArray> ServidorGuion::destinos() const
{
    QList<QByteArray> destinos;
    for (const QByteArray &cabeza : cabezas())
        destinos.append(cabeza.split(' ').value(1));
    return destinos;
}

void ServidorGuion::abrir()
{
    m_oido = zocalos::oir(m_direccion.constData(), 64, m_puerto);
    if (m_oido == zocalos::ninguno)
        qFatal("no loopback port for a scripted server");
    m_oyente = std::thread([this] { escuchar(); });
}

void ServidorGuion::escuchar()
{
    for (;;) {
        std::array<zocalos::Espera, 2> esperas = {
            {{.zocalo = m_oido}, {.zocalo = m_parada.zocalo()}}};
        zocalos::esperar(esperas, zocalos::sinLimite);
        if (esperas[1].lista)
            return;
        const zocalos::Zocalo conexion = zocalos::aceptar(m_oido);
        if (conexion == zocalos::ninguno)
            continue;
        zocalos::noBloquear(conexion);
        m_hilos.emplace_back([this, conexion, numero = m_conexiones++] {
            Charla charla(*this, numero, conexion);
            m_guion(charla);
            zocalos::cerrar(conexion);
        });
    }
}
