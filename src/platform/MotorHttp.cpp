// SPDX-License-Identifier: MIT
#include "MotorHttp.h"
#include "HttpClientSistema.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace {

using std::chrono::milliseconds;

// Far below what a person notices, and above what a quick service takes to answer.
constexpr milliseconds deCerca(4);

} // namespace

MotorHttp::MotorHttp(const BibliotecaCurl &curl, AlTerminar alTerminar)
    : m_curl(curl), m_alTerminar(std::move(alTerminar)), m_multi(curl.multi_init()),
      m_listo(m_multi != nullptr)
{
    const auto poner = [&](CURLMoption opcion, auto valor) {
        m_listo = m_listo && m_curl.multi_setopt(m_multi, opcion, valor) == CURLM_OK;
    };
    poner(CURLMOPT_SOCKETFUNCTION, &MotorHttp::alCambiarSocket);
    poner(CURLMOPT_SOCKETDATA, this);
    poner(CURLMOPT_TIMERFUNCTION, &MotorHttp::alCambiarPlazo);
    poner(CURLMOPT_TIMERDATA, this);
    m_plazo.setSingleShot(true);
    m_plazo.setTimerType(Qt::PreciseTimer);
    connect(&m_plazo, &QTimer::timeout, this, &MotorHttp::vencer);
}

MotorHttp::~MotorHttp()
{
    if (m_multi)
        m_curl.multi_cleanup(m_multi);
}

bool MotorHttp::poner(CURL *easy)
{
    const bool puesta = m_curl.multi_add_handle(m_multi, easy) == CURLM_OK;
    vigilar();
    return puesta;
}

// To take off what is not there changes nothing.
void MotorHttp::quitar(CURL *easy)
{
    static_cast<void>(m_curl.multi_remove_handle(m_multi, easy));
    vigilar();
}

MotorHttp::Reloj::time_point MotorHttp::prontoDesdeAhora()
{
    return Reloj::now() + deCerca;
}

void MotorHttp::esperarDeCerca(const bool &terminada, Reloj::time_point hasta)
{
    {
        const QScopedValueRollback cerca(m_deCerca, true);
        for (auto ahora = Reloj::now(); !terminada && ahora < hasta; ahora = Reloj::now())
            atender(std::chrono::ceil<milliseconds>(hasta - ahora));
    }
    vigilar();
}

void MotorHttp::girar()
{
    HttpClientSistema::girar();
    if (!HttpClientSistema::avisaDeTodo())
        atender(milliseconds::zero());
    m_retirados.clear();
}

// Waits until a socket is ready or the library's own time has come, and lets it act.
void MotorHttp::atender(milliseconds alMas)
{
    const auto resta = m_vence ? std::chrono::ceil<milliseconds>(*m_vence - Reloj::now()) : alMas;
    if (resta <= milliseconds(0)) {
        vencer();
        return;
    }
    std::vector<HttpClientSistema::Espera> esperas;
    for (const auto &[conexion, vigia] : m_vigias)
        esperas.push_back({.conexion = conexion,
                           .leer = (vigia.que & CURL_POLL_IN) != 0,
                           .escribir = (vigia.que & CURL_POLL_OUT) != 0});
    HttpClientSistema::esperar(esperas, std::min(resta, alMas));
    for (const HttpClientSistema::Espera &una : esperas) {
        // One that the library has given up meanwhile is none of its business any more.
        if ((una.leer || una.escribir) && m_vigias.contains(una.conexion))
            actuar(una.conexion,
                   (una.leer ? CURL_CSELECT_IN : 0) | (una.escribir ? CURL_CSELECT_OUT : 0));
    }
}

// The library's own time has come. It says anew when the next is.
void MotorHttp::vencer()
{
    m_vence.reset();
    actuar(CURL_SOCKET_TIMEOUT, 0);
}

void MotorHttp::actuar(curl_socket_t conexion, int suceso)
{
    int enMarcha = 0;
    // What goes wrong with a transfer here is told by the message of its end.
    static_cast<void>(m_curl.multi_socket_action(m_multi, conexion, suceso, &enMarcha));
    int restantes = 0;
    while (const CURLMsg *mensaje = m_curl.multi_info_read(m_multi, &restantes)) {
        if (mensaje->msg == CURLMSG_DONE)
            m_alTerminar(mensaje->easy_handle, mensaje->data.result);
    }
    vigilar();
}

// Hands what the library waits for to the event loop.
void MotorHttp::vigilar()
{
    if (m_deCerca)
        return;
    for (auto &[conexion, vigia] : m_vigias) {
        vigilar(vigia.lectura, (vigia.que & CURL_POLL_IN) != 0, conexion, QSocketNotifier::Read,
                CURL_CSELECT_IN);
        vigilar(vigia.escritura, (vigia.que & CURL_POLL_OUT) != 0, conexion, QSocketNotifier::Write,
                CURL_CSELECT_OUT);
    }
    if (m_puesto == m_vence)
        return;
    m_puesto = m_vence;
    m_plazo.stop();
    if (m_vence)
        m_plazo.start(
            std::max(std::chrono::ceil<milliseconds>(*m_vence - Reloj::now()), milliseconds(0)));
}

void MotorHttp::vigilar(std::unique_ptr<QSocketNotifier> &aviso, bool hace, curl_socket_t conexion,
                        QSocketNotifier::Type tipo, int suceso)
{
    if (hace == bool(aviso))
        return;
    if (!hace) {
        retirar(aviso);
        return;
    }
    aviso = std::make_unique<QSocketNotifier>(static_cast<qintptr>(conexion), tipo);
    connect(aviso.get(), &QSocketNotifier::activated, this,
            [this, conexion, suceso] { actuar(conexion, suceso); });
}

// The socket may be closed as soon as this returns, so that its notifiers go at once. All else
// is handed on when the library has done acting.
int MotorHttp::alCambiarSocket(CURL *, curl_socket_t conexion, int que, void *quien, void *)
{
    auto &yo = *static_cast<MotorHttp *>(quien);
    Vigia &vigia = yo.m_vigias[conexion];
    vigia.que = que;
    if (que == CURL_POLL_REMOVE) {
        yo.retirar(vigia.lectura);
        yo.retirar(vigia.escritura);
        yo.m_vigias.erase(conexion);
    }
    return 0;
}

int MotorHttp::alCambiarPlazo(CURLM *, long espera, void *quien)
{
    auto &yo = *static_cast<MotorHttp *>(quien);
    if (espera < 0)
        yo.m_vence.reset();
    else
        yo.m_vence = Reloj::now() + milliseconds(espera);
    return 0;
}

// A notifier may be the one whose signal is just being handled: it is switched off here and
// deleted by the wait that turned the loop.
void MotorHttp::retirar(std::unique_ptr<QSocketNotifier> &aviso)
{
    if (!aviso)
        return;
    aviso->setEnabled(false);
    aviso->disconnect();
    m_retirados.push_back(std::move(aviso));
}
