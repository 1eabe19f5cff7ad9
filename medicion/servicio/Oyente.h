// SPDX-License-Identifier: MIT
// One loopback port and the threads that serve it. A connection is answered once; then the client
// is left to close first, and what is left of the connection is dropped, so that none of the
// thousands of a run lingers and makes the next one's port dear to find.
#pragma once

#include "EscuelaMedida.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

struct ssl_ctx_st;
struct ssl_st;

class Oyente {
public:
    // `tls`: borrowed, must outlive the object; null for plain text. Throws std::runtime_error
    // when the port cannot be had.
    explicit Oyente(ssl_ctx_st *tls);

    // The threads run as long as the process: it ends with _exit.
    void atender();

    const std::string &base() const { return m_base; } // "http://127.0.0.1:40123"
    void poner(std::shared_ptr<const EscuelaMedida> escuela);
    // How long each reply is held back.
    void demorar(std::chrono::milliseconds demora) { m_demora = demora.count(); }
    // The whole addresses asked for since the last call, in order of arrival.
    std::vector<std::string> tomarDirecciones();

private:
    void servir();
    void atenderUna(int zocalo);
    std::string mensaje(std::string_view cabecera);

    ssl_ctx_st *m_tls;
    int m_escucha = -1;
    std::string m_base;
    std::atomic<long long> m_demora = 0;
    std::mutex m_cerrojo; // of the two below
    std::shared_ptr<const EscuelaMedida> m_escuela;
    std::vector<std::string> m_direcciones;
    std::vector<std::thread> m_hilos;
};
