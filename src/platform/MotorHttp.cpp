// SPDX-License-Identifier: MIT
#include "MotorHttp.h"

#include <QCoreApplication>
#include <QEventLoop>

MotorHttp::MotorHttp(AlTerminar alTerminar)
    : m_alTerminar(std::move(alTerminar)), m_multi(curl_multi_init()), m_listo(m_multi != nullptr)
{
    const auto poner = [&](CURLMoption opcion, auto valor) {
        m_listo = m_listo && curl_multi_setopt(m_multi, opcion, valor) == CURLM_OK;
    };
    poner(CURLMOPT_SOCKETFUNCTION, &MotorHttp::alCambiarSocket);
    poner(CURLMOPT_SOCKETDATA, this);
    poner(CURLMOPT_TIMERFUNCTION, &MotorHttp::alCambiarPlazo);
    poner(CURLMOPT_TIMERDATA, this);
    m_plazo.setSingleShot(true);
    m_plazo.setTimerType(Qt::PreciseTimer);
    connect(&m_plazo, &QTimer::timeout, this, [this] { actuar(CURL_SOCKET_TIMEOUT, 0); });
}

MotorHttp::~MotorHttp()
{
    if (m_multi)
        curl_multi_cleanup(m_multi);
}

bool MotorHttp::poner(CURL *easy)
{
    return curl_multi_add_handle(m_multi, easy) == CURLM_OK;
}

// To take off what is not there changes nothing.
void MotorHttp::quitar(CURL *easy)
{
    static_cast<void>(curl_multi_remove_handle(m_multi, easy));
}

void MotorHttp::girar()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    m_retirados.clear();
}

void MotorHttp::actuar(curl_socket_t conexion, int suceso)
{
    int enMarcha = 0;
    // What goes wrong with a transfer here is told by the message of its end.
    static_cast<void>(curl_multi_socket_action(m_multi, conexion, suceso, &enMarcha));
    int restantes = 0;
    while (const CURLMsg *mensaje = curl_multi_info_read(m_multi, &restantes)) {
        if (mensaje->msg == CURLMSG_DONE)
            m_alTerminar(mensaje->easy_handle, mensaje->data.result);
    }
}

std::unique_ptr<QSocketNotifier> MotorHttp::vigilar(curl_socket_t conexion,
                                                    QSocketNotifier::Type tipo, int suceso)
{
    auto aviso = std::make_unique<QSocketNotifier>(static_cast<qintptr>(conexion), tipo);
    connect(aviso.get(), &QSocketNotifier::activated, this,
            [this, conexion, suceso] { actuar(conexion, suceso); });
    return aviso;
}

int MotorHttp::alCambiarSocket(CURL *, curl_socket_t conexion, int que, void *quien, void *)
{
    auto &yo = *static_cast<MotorHttp *>(quien);
    Vigia &vigia = yo.m_vigias[conexion];
    yo.retirar(vigia);
    if (que == CURL_POLL_REMOVE) {
        yo.m_vigias.erase(conexion);
        return 0;
    }
    if (que & CURL_POLL_IN)
        vigia.lectura = yo.vigilar(conexion, QSocketNotifier::Read, CURL_CSELECT_IN);
    if (que & CURL_POLL_OUT)
        vigia.escritura = yo.vigilar(conexion, QSocketNotifier::Write, CURL_CSELECT_OUT);
    return 0;
}

int MotorHttp::alCambiarPlazo(CURLM *, long milisegundos, void *quien)
{
    auto &yo = *static_cast<MotorHttp *>(quien);
    if (milisegundos < 0)
        yo.m_plazo.stop();
    else
        yo.m_plazo.start(std::chrono::milliseconds(milisegundos));
    return 0;
}

// A notifier may be the one whose signal is just being handled: it is switched off here and
// deleted by the wait that turned the loop.
void MotorHttp::retirar(Vigia &vigia)
{
    for (auto *aviso : {&vigia.lectura, &vigia.escritura}) {
        if (!*aviso)
            continue;
        (*aviso)->setEnabled(false);
        (*aviso)->disconnect();
        m_retirados.push_back(std::move(*aviso));
    }
}
