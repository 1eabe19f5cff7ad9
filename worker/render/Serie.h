// SPDX-License-Identifier: MIT
// Draws the documents that come in over standard input, one after another, on one engine. Each has
// a profile and a process of its own, which end with it: of what a page fetched, kept or left
// running, the next one finds nothing.
#pragma once

#include "worker/render/Dibujo.h"
#include "worker/render/Pasarela.h"
#include "worker/render/motor.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>
#include <QWebEngineProfile>

#include <functional>
#include <memory>
#include <optional>

// What is to be drawn, where, and on which paper. The paths are absolute.
struct Pedido {
    QString html;
    QString pdf;
    QPageLayout hoja;
};

class Serie : public QObject {
    Q_OBJECT

public:
    // Reads an order's three lines, without their ends. Empty when they are none.
    using Lector = std::function<std::optional<Pedido>(
        const QByteArray &largos, const QByteArray &html, const QByteArray &pdf)>;

    Serie(motor::Encargo encargo, Pasarela &pasarela, Lector lector, QObject *parent = nullptr);

    // Brings the engine up and waits for an order.
    void esperar();
    // Draws this one and no other.
    void dibujar(const Pedido &pedido);

Q_SIGNALS:
    void terminada(int codigo); // of salida.h: this process should end

private:
    void prepararDibujo();
    void leerEntrada();
    void concluir(int codigo);
    void renovar();
    bool seguir();

    motor::Encargo m_encargo;
    Pasarela &m_pasarela;
    Lector m_lector;
    QByteArray m_recibido;
    QSocketNotifier m_entrada;
    std::unique_ptr<QWebEngineProfile> m_perfil;
    std::unique_ptr<Dibujo> m_dibujo; // before the profile it goes
    QTimer m_renovacion;              // of both, when the page's own signal has been handled
    int m_dibujados = 0;
    bool m_agotada = false;
};
