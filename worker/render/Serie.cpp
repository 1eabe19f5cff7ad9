// SPDX-License-Identifier: MIT
#include "worker/render/Serie.h"

#include "worker/render/codigo.h"
#include "worker/render/salida.h"

#include <array>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int lineasDelPedido = 3;

// What an engine gathers over the documents goes with it after that many.
constexpr int documentosPorMotor = 64;

// False when whoever gave the order cannot be told; the exit code then tells.
bool avisar()
{
    return send(STDIN_FILENO, &salida::listo, sizeof salida::listo, MSG_NOSIGNAL)
           == sizeof salida::listo;
}

// A document whose title does not arrive goes by its file's name.
void titular(QByteArray titulo)
{
    titulo += salida::finDeTitulo;
    [[maybe_unused]] const ssize_t dicho = send(
        STDIN_FILENO, titulo.constData(), static_cast<std::size_t>(titulo.size()), MSG_NOSIGNAL);
}

} // namespace

Serie::Serie(motor::Encargo encargo, Pasarela &pasarela, Lector lector, QObject *parent)
    : QObject(parent), m_encargo(std::move(encargo)), m_pasarela(pasarela),
      m_lector(std::move(lector)), m_entrada(STDIN_FILENO, QSocketNotifier::Read)
{
    m_renovacion.setSingleShot(true);
    connect(&m_renovacion, &QTimer::timeout, this, &Serie::renovar);
    m_entrada.setEnabled(false);
    connect(&m_entrada, &QSocketNotifier::activated, this, &Serie::leerEntrada);
}

void Serie::esperar()
{
    prepararDibujo();
    m_dibujo->calentar();
    m_entrada.setEnabled(true);
}

void Serie::dibujar(const Pedido &pedido)
{
    if (!m_dibujo)
        prepararDibujo();
    // What the engine was brought up with, or drew the page before with, is not kept beside what
    // this page takes.
    codigo::soltar();
    m_pasarela.admitir();
    m_dibujo->dibujar(pedido.html, pedido.pdf, pedido.hoja);
}

void Serie::prepararDibujo()
{
    m_perfil = motor::perfil(m_encargo);
    m_dibujo = std::make_unique<Dibujo>(m_perfil.get(), m_encargo.plazo);
    connect(m_dibujo.get(), &Dibujo::agotado, this, [this] {
        m_agotada = true;
        m_pasarela.cortar();
    });
    connect(m_dibujo.get(), &Dibujo::titulado, this, &titular);
    connect(m_dibujo.get(), &Dibujo::terminado, this, &Serie::concluir);
}

void Serie::leerEntrada()
{
    std::array<char, 4096> trozo{};
    const ssize_t leidos = read(STDIN_FILENO, trozo.data(), trozo.size());
    if (leidos <= 0) {
        terminada(salida::hecho); // nothing was asked for
        return;
    }
    m_recibido.append(trozo.data(), leidos);
    if (m_recibido.count('\n') < lineasDelPedido)
        return;
    m_entrada.setEnabled(false);
    const QList<QByteArray> lineas = std::exchange(m_recibido, {}).split('\n');
    const auto pedido = m_lector(lineas[0], lineas[1], lineas[2]);
    if (pedido)
        dibujar(*pedido);
    else
        terminada(salida::malUso);
}

void Serie::concluir(int codigo)
{
    // The page's process is ended, not asked to end: it would run what the page does on leaving.
    m_dibujo->matar();
    m_pasarela.cortar();
    if (codigo != salida::hecho || !seguir()) {
        terminada(codigo);
        return;
    }
    m_renovacion.start();
}

void Serie::renovar()
{
    m_dibujo.reset();
    m_perfil.reset();
    esperar();
}

// A page that used up its time may have left more behind than can be seen from here.
bool Serie::seguir()
{
    return ++m_dibujados < documentosPorMotor && !m_agotada && avisar();
}
