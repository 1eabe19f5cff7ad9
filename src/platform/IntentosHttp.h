// SPDX-License-Identifier: MIT
// The attempts to make one request's connection. An attempt that fails because this computer has
// no way out is made again until the time for the connection is over: nothing has reached the wire
// meanwhile. Whatever the peer answers, a refusal too, is no such case.
#pragma once

#include "HttpClientSistema.h"
#include "MotorHttp.h"
#include "TransferenciaHttp.h"
#include "platform/HttpClient.h"

#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

class IntentosHttp {
public:
    using AlFallar = std::function<void(CURLcode)>;

    // All but `alFallar` are borrowed, and they and what it refers to must outlive this object: its
    // timers act on them. It is called when the last attempt promised by otroTras()
    // cannot be made or the time is over.
    IntentosHttp(TransferenciaHttp &transferencia, MotorHttp &motor,
                 const HttpClient::Limites &limites, AlFallar alFallar);

    // The first attempt.
    void empezar();
    // An attempt has ended so. True: another will follow, or alFallar() be called; false: it was
    // the last.
    bool otroTras(CURLcode resultado);

private:
    std::chrono::milliseconds resta() const;
    void intentar();
    bool programar();
    void mirarRespuesta();
    void despertar(std::chrono::milliseconds espera);

    TransferenciaHttp &m_transferencia;
    MotorHttp &m_motor;
    const HttpClient::Limites &m_limites;
    AlFallar m_alFallar;
    TransferenciaHttp::Reloj::time_point m_principio;
    CURLcode m_fallo = CURLE_OK; // of the last attempt
    // Where the answer to a look-up of a name appears that goes on; else null.
    std::shared_ptr<const std::atomic<HttpClientSistema::Busqueda>> m_consulta;
    // Until the next look at it, or the next attempt. Hardly a request needs it.
    std::optional<QTimer> m_reloj;
};
