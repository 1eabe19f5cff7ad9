// SPDX-License-Identifier: MIT
#include "ProxySistema_windows.h"
#include "proxyDeWindows.h"

#include <optional>
#include <system_error>
#include <thread>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <winhttp.h>

namespace {

struct Cierra {
    void operator()(HINTERNET sesion) const
    {
        // Nothing was left to be done in it.
        static_cast<void>(::WinHttpCloseHandle(sesion));
    }
};
using Sesion = std::unique_ptr<void, Cierra>;

// Takes over a text that the system has allocated.
QString tomado(LPWSTR texto)
{
    const QString copia = texto ? QString::fromWCharArray(texto) : QString();
    if (texto)
        ::GlobalFree(texto);
    return copia;
}

using Ajustes = ProxySistema::Ajustes;
using Automatica = ProxySistema::Automatica;

Ajustes leer()
{
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG leidos = {};
    if (!::WinHttpGetIEProxyConfigForCurrentUser(&leidos))
        return {};
    return {.detectar = leidos.fAutoDetect != FALSE,
            .guion = tomado(leidos.lpszAutoConfigUrl),
            .lista = tomado(leidos.lpszProxy),
            .salvo = tomado(leidos.lpszProxyBypass)};
}

// The script may lie where the user's own name has to be told; that is done when it is asked for,
// and not before.
std::optional<Automatica> resolver(HINTERNET sesion, const QString &direccion,
                                   WINHTTP_AUTOPROXY_OPTIONS opciones)
{
    const std::wstring escrita = direccion.toStdWString();
    WINHTTP_PROXY_INFO dicho = {};
    BOOL hay = ::WinHttpGetProxyForUrl(sesion, escrita.c_str(), &opciones, &dicho);
    if (!hay && ::GetLastError() == ERROR_WINHTTP_LOGIN_FAILURE) {
        opciones.fAutoLogonIfChallenged = TRUE;
        hay = ::WinHttpGetProxyForUrl(sesion, escrita.c_str(), &opciones, &dicho);
    }
    if (!hay)
        return std::nullopt;
    Automatica automatica = {.lista = tomado(dicho.lpszProxy),
                             .salvo = tomado(dicho.lpszProxyBypass)};
    if (dicho.dwAccessType != WINHTTP_ACCESS_TYPE_NAMED_PROXY)
        automatica.lista.clear();
    return automatica;
}

// In the order in which Windows tries them: the network's own, then the one that the user names.
std::optional<Automatica> resolver(const Ajustes &ajustes, const QString &direccion)
{
    const Sesion sesion(
        ::WinHttpOpen(L"Parvanel/4.0", WINHTTP_ACCESS_TYPE_NO_PROXY, nullptr, nullptr, 0));
    if (!sesion)
        return std::nullopt;
    std::optional<Automatica> automatica;
    if (ajustes.detectar) {
        WINHTTP_AUTOPROXY_OPTIONS opciones = {};
        opciones.dwFlags = WINHTTP_AUTOPROXY_AUTO_DETECT;
        opciones.dwAutoDetectFlags = WINHTTP_AUTO_DETECT_TYPE_DHCP | WINHTTP_AUTO_DETECT_TYPE_DNS_A;
        automatica = resolver(sesion.get(), direccion, opciones);
    }
    if (!automatica && !ajustes.guion.isEmpty()) {
        const std::wstring guion = ajustes.guion.toStdWString();
        WINHTTP_AUTOPROXY_OPTIONS opciones = {};
        opciones.dwFlags = WINHTTP_AUTOPROXY_CONFIG_URL;
        opciones.lpszAutoConfigUrl = guion.c_str();
        automatica = resolver(sesion.get(), direccion, opciones);
    }
    return automatica;
}

} // namespace

ProxySistema::ProxySistema() : m_ajustes(leer()) {}

bool ProxySistema::conocido(const QByteArray &direccion)
{
    const bool hayGuion = m_ajustes.detectar || !m_ajustes.guion.isEmpty();
    if (!hayGuion || proxyDeWindows::esDeAqui(direccion, m_ajustes.salvo))
        return true;
    if (!m_respuesta) {
        m_respuesta = std::make_shared<Respuesta>();
        try {
            std::thread([respuesta = m_respuesta, ajustes = m_ajustes, direccion] {
                respuesta->automatica = resolver(ajustes, QString::fromUtf8(direccion));
                respuesta->llegada = true;
            }).detach();
        } catch (const std::system_error &) {
            m_respuesta->llegada = true; // by the user's own list, then
        }
    }
    return m_respuesta->llegada;
}

QByteArray ProxySistema::para(const QByteArray &direccion) const
{
    if (proxyDeWindows::esDeAqui(direccion, m_ajustes.salvo))
        return {};
    if (m_respuesta && !m_respuesta->llegada)
        return {};
    if (m_respuesta && m_respuesta->automatica)
        return proxyDeWindows::proxyPara(direccion, m_respuesta->automatica->lista,
                                         m_respuesta->automatica->salvo);
    return proxyDeWindows::proxyPara(direccion, m_ajustes.lista, m_ajustes.salvo);
}
