// SPDX-License-Identifier: MIT
// Drives the HTTP client's transfers with this thread's event loop. Whoever turns the loop, a wait
// of the client's or a message box, moves all of them on.
#pragma once

#include "BibliotecaCurl.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class MotorHttp : public QObject {
public:
    using Reloj = std::chrono::steady_clock;
    // Called when a transfer has ended, from within the event loop and from no callback of the
    // library: it may take transfers off and put others on, but must not turn the loop. What it
    // refers to must outlive this object.
    using AlTerminar = std::function<void(CURL *, CURLcode)>;

    // `curl` is borrowed, and must outlive the object.
    MotorHttp(const BibliotecaCurl &curl, AlTerminar alTerminar);
    ~MotorHttp() override;

    // Whether the library has given all that is needed. Nothing may be started otherwise.
    bool listo() const { return m_listo; }
    // Starts a transfer. It is borrowed, and must be taken off before it is cleaned up, else the
    // library goes on with memory that is free. False: it could not be taken up.
    bool poner(CURL *easy);
    // Lets go of a transfer and its connection, whether it has ended or not: no callback of it is
    // called any more.
    void quitar(CURL *easy);
    // The end of a moment, from now, that nobody notices.
    static Reloj::time_point prontoDesdeAhora();
    // Waits for the sockets alone, until it has ended or the moment has: a reply that comes at once
    // is not worth what the event loop costs.
    void esperarDeCerca(const bool &terminada, Reloj::time_point hasta);
    // Handles what events there are, or waits for one.
    void girar();

private:
    // The notifiers of one socket, which is the library's own: it says when to stop watching, and
    // closes it.
    struct Vigia {
        int que = CURL_POLL_NONE; // what the library waits for there
        std::unique_ptr<QSocketNotifier> lectura;
        std::unique_ptr<QSocketNotifier> escritura;
    };

    void actuar(curl_socket_t conexion, int suceso);
    void vencer();
    void atender(std::chrono::milliseconds alMas);
    void vigilar();
    void vigilar(std::unique_ptr<QSocketNotifier> &aviso, bool hace, curl_socket_t conexion,
                 QSocketNotifier::Type tipo, int suceso);
    static int alCambiarSocket(CURL *, curl_socket_t conexion, int que, void *quien, void *);
    static int alCambiarPlazo(CURLM *, long espera, void *quien);
    void retirar(std::unique_ptr<QSocketNotifier> &aviso);

    const BibliotecaCurl &m_curl;
    AlTerminar m_alTerminar;
    CURLM *m_multi = nullptr;
    bool m_listo = false;
    std::map<curl_socket_t, Vigia> m_vigias;
    std::vector<std::unique_ptr<QSocketNotifier>> m_retirados;
    std::optional<Reloj::time_point> m_vence;  // when the library wants to be called
    std::optional<Reloj::time_point> m_puesto; // of that, what the event loop knows
    QTimer m_plazo;
    bool m_deCerca = false;
};
