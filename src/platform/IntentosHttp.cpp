// SPDX-License-Identifier: MIT
#include "IntentosHttp.h"

#include <system_error>
#include <thread>

using namespace std::chrono_literals;
using HttpClientSistema::Busqueda;

namespace {

constexpr auto mirada = 20ms; // between two looks at a look-up

// Begins to look a name up in a thread of its own, which nobody waits for: the answer appears in
// the result. Null when that cannot be done.
std::shared_ptr<const std::atomic<Busqueda>> consultar(const QByteArray &nombre)
{
    const auto consulta = std::make_shared<std::atomic<Busqueda>>(Busqueda::EnCurso);
    try {
        std::thread([consulta, nombre] { *consulta = HttpClientSistema::buscar(nombre); }).detach();
    } catch (const std::system_error &) {
        return nullptr;
    }
    return consulta;
}

} // namespace

IntentosHttp::IntentosHttp(TransferenciaHttp &transferencia, MotorHttp &motor,
                           const HttpClient::Limites &limites, AlFallar alFallar)
    : m_transferencia(transferencia), m_motor(motor), m_limites(limites),
      m_alFallar(std::move(alFallar))
{
}

std::chrono::milliseconds IntentosHttp::resta() const
{
    const auto pasado = TransferenciaHttp::Reloj::now() - m_principio;
    return m_limites.conexion - std::chrono::duration_cast<std::chrono::milliseconds>(pasado);
}

void IntentosHttp::empezar()
{
    m_principio = TransferenciaHttp::Reloj::now();
    intentar();
}

// The time for the connection is that of all attempts together; zero would be none at all.
void IntentosHttp::intentar()
{
    const long tiempo = std::max(1L, static_cast<long>(resta().count()));
    if (!m_transferencia.renovar(tiempo) || !m_motor.poner(m_transferencia.easy))
        m_alFallar(CURLE_FAILED_INIT);
}

bool IntentosHttp::otroTras(CURLcode resultado)
{
    m_fallo = resultado;
    if (resultado == CURLE_COULDNT_CONNECT)
        return m_transferencia.sinSalida() && programar();
    if (resultado != CURLE_COULDNT_RESOLVE_HOST && resultado != CURLE_COULDNT_RESOLVE_PROXY)
        return false;
    // The library does not tell a name that does not exist from a look-up that fails for now.
    const QByteArray nombre = m_transferencia.nombreBuscado();
    m_consulta = nombre.isEmpty() ? nullptr : consultar(nombre);
    if (m_consulta)
        despertar(mirada);
    return m_consulta != nullptr;
}

bool IntentosHttp::programar()
{
    if (resta() <= m_limites.reintento)
        return false;
    despertar(m_limites.reintento);
    return true;
}

void IntentosHttp::mirarRespuesta()
{
    const Busqueda busqueda = *m_consulta;
    if (busqueda == Busqueda::EnCurso && resta() > 0ms) {
        despertar(mirada);
        return;
    }
    m_consulta.reset();
    if (busqueda != Busqueda::OtraVez || !programar())
        m_alFallar(m_fallo);
}

void IntentosHttp::despertar(std::chrono::milliseconds espera)
{
    if (!m_reloj) {
        m_reloj.emplace();
        m_reloj->setSingleShot(true);
        QObject::connect(&*m_reloj, &QTimer::timeout, &*m_reloj,
                         [this] { m_consulta ? mirarRespuesta() : intentar(); });
    }
    m_reloj->start(espera);
}
