// SPDX-License-Identifier: MIT
#include "HttpClientSistema.h"
#include "ProxySistema_windows.h"
#include "platform/HttpClient.h"
#include "platform/direccionHttp.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <array>
#include <functional>
#include <thread>

#define SECURITY_WIN32
#include <winsock2.h>
#include <ws2tcpip.h>

#include <iphlpapi.h>
#include <schannel.h>
#include <security.h>
#include <wincrypt.h>

QString HttpClient::autoridadesDelSistema()
{
    return {};
}

namespace {

using Adaptadores = std::vector<std::byte>;

// The tables of this computer's interfaces, empty when they cannot be read.
Adaptadores adaptadores()
{
    constexpr ULONG sinLoDemas =
        GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_SKIP_DNS_SERVER;
    ULONG largo = 16 * 1024;
    Adaptadores tablas(largo);
    for (int veces = 0; veces < 4; ++veces) { // they may grow between two calls
        const ULONG error =
            ::GetAdaptersAddresses(AF_UNSPEC, sinLoDemas, nullptr,
                                   reinterpret_cast<IP_ADAPTER_ADDRESSES *>(tablas.data()), &largo);
        if (error == ERROR_SUCCESS)
            return tablas;
        if (error != ERROR_BUFFER_OVERFLOW)
            break;
        tablas.resize(largo);
    }
    return {};
}

// Whether some interface is such a one.
bool hayAdaptador(const Adaptadores &tablas,
                  const std::function<bool(const IP_ADAPTER_ADDRESSES &)> &es)
{
    const auto *una =
        tablas.empty() ? nullptr : reinterpret_cast<const IP_ADAPTER_ADDRESSES *>(tablas.data());
    for (; una; una = una->Next) {
        if (es(*una))
            return true;
    }
    return false;
}

bool mismaDireccion(const SOCKADDR *una, const sockaddr_storage &otra)
{
    if (!una || una->sa_family != otra.ss_family)
        return false;
    if (una->sa_family == AF_INET)
        return reinterpret_cast<const sockaddr_in *>(una)->sin_addr.s_addr
               == reinterpret_cast<const sockaddr_in &>(otra).sin_addr.s_addr;
    return una->sa_family == AF_INET6
           && IN6_ADDR_EQUAL(&reinterpret_cast<const sockaddr_in6 *>(una)->sin6_addr,
                             &reinterpret_cast<const sockaddr_in6 &>(otra).sin6_addr);
}

// What the system does not tell of an interface (of the loopback one, say) is as good as up.
bool encendido(const IP_ADAPTER_ADDRESSES &adaptador)
{
    return adaptador.OperStatus != IfOperStatusDown
           && adaptador.OperStatus != IfOperStatusNotPresent
           && adaptador.OperStatus != IfOperStatusLowerLayerDown;
}

bool tiene(const IP_ADAPTER_ADDRESSES &adaptador, const sockaddr_storage &propia)
{
    for (const auto *una = adaptador.FirstUnicastAddress; una; una = una->Next) {
        if (mismaDireccion(una->Address.lpSockaddr, propia))
            return true;
    }
    return false;
}

// Whether the interface of this address is up and has its cable in. Not known is as good.
bool conectada(const sockaddr_storage &propia)
{
    const Adaptadores tablas = adaptadores();
    const auto suya = [&](const IP_ADAPTER_ADDRESSES &una) {
        return tiene(una, propia);
    };
    return !hayAdaptador(tablas, suya)
           || hayAdaptador(tablas, [&](const IP_ADAPTER_ADDRESSES &una) {
                  return suya(una) && encendido(una);
              });
}

// Whether this computer is in any network at all.
bool enRed()
{
    const Adaptadores tablas = adaptadores();
    return tablas.empty() || hayAdaptador(tablas, [](const IP_ADAPTER_ADDRESSES &una) {
               return una.IfType != IF_TYPE_SOFTWARE_LOOPBACK && encendido(una)
                      && una.FirstUnicastAddress;
           });
}

template <auto suelta>
struct Suelta {
    template <class T>
    void operator()(T *cosa) const
    {
        // What it was needed for has been done.
        static_cast<void>(suelta(cosa));
    }
};
void soltarCadena(PCCERT_CHAIN_CONTEXT cadena)
{
    ::CertFreeCertificateChain(cadena);
}
using Certificado = std::unique_ptr<const CERT_CONTEXT, Suelta<&CertFreeCertificateContext>>;
using Cadena = std::unique_ptr<const CERT_CHAIN_CONTEXT, Suelta<&soltarCadena>>;

// The name of the service that a transfer speaks to, as certificates write it; empty when it
// speaks without encryption. Nothing when that cannot be told.
std::optional<QString> nombreSeguro(const BibliotecaCurl &curl, CURL *easy)
{
    const char *direccion = nullptr;
    if (curl.easy_getinfo(easy, CURLINFO_EFFECTIVE_URL, &direccion) != CURLE_OK || !direccion)
        return std::nullopt;
    if (!direccionHttp::esSegura(direccion))
        return QString();
    const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> partes(curl.url(), curl.url_cleanup);
    char *servidor = nullptr;
    if (!partes || curl.url_set(partes.get(), CURLUPART_URL, direccion, 0) != CURLUE_OK
        || curl.url_get(partes.get(), CURLUPART_HOST, &servidor, CURLU_PUNYCODE) != CURLUE_OK)
        return std::nullopt;
    const QString nombre = QString::fromUtf8(servidor).remove(u'[').remove(u']');
    curl.free(servidor);
    return nombre;
}

// The certificate that the peer has shown; null when there is none.
Certificado certificadoDe(const BibliotecaCurl &curl, CURL *easy)
{
    const curl_tlssessioninfo *sesion = nullptr;
    if (curl.easy_getinfo(easy, CURLINFO_TLS_SSL_PTR, &sesion) != CURLE_OK || !sesion
        || sesion->backend != CURLSSLBACKEND_SCHANNEL || !sesion->internals)
        return nullptr;
    PCCERT_CONTEXT certificado = nullptr;
    if (::QueryContextAttributesW(static_cast<CtxtHandle *>(sesion->internals),
                                  SECPKG_ATTR_REMOTE_CERT_CONTEXT, &certificado)
        != SEC_E_OK)
        return nullptr;
    return Certificado(certificado);
}

// Up to an authority that the system trusts; what else came along helps to get there.
Cadena cadenaDe(const CERT_CONTEXT &certificado)
{
    std::array<char, 32> uso = {szOID_PKIX_KP_SERVER_AUTH};
    std::array<LPSTR, 1> usos = {uso.data()};
    CERT_CHAIN_PARA pedido = {};
    pedido.cbSize = sizeof pedido;
    pedido.RequestedUsage.dwType = USAGE_MATCH_TYPE_AND;
    pedido.RequestedUsage.Usage.cUsageIdentifier = usos.size();
    pedido.RequestedUsage.Usage.rgpszUsageIdentifier = usos.data();
    PCCERT_CHAIN_CONTEXT cadena = nullptr;
    if (!::CertGetCertificateChain(nullptr, &certificado, nullptr, certificado.hCertStore, &pedido,
                                   CERT_CHAIN_CACHE_END_CERT, nullptr, &cadena))
        return nullptr;
    return Cadena(cadena);
}

bool sirveA(const CERT_CHAIN_CONTEXT &cadena, const QString &nombre)
{
    std::wstring escrito = nombre.toStdWString();
    SSL_EXTRA_CERT_CHAIN_POLICY_PARA deTls = {};
    deTls.cbSize = sizeof deTls;
    deTls.dwAuthType = AUTHTYPE_SERVER;
    deTls.pwszServerName = escrito.data();
    CERT_CHAIN_POLICY_PARA regla = {};
    regla.cbSize = sizeof regla;
    regla.pvExtraPolicyPara = &deTls;
    CERT_CHAIN_POLICY_STATUS dicho = {};
    dicho.cbSize = sizeof dicho;
    return ::CertVerifyCertificateChainPolicy(CERT_CHAIN_POLICY_SSL, &cadena, &regla, &dicho)
           && dicho.dwError == 0 && cadena.TrustStatus.dwErrorStatus == CERT_TRUST_NO_ERROR;
}

} // namespace

namespace HttpClientSistema {

void preparar()
{
    // The library begins them as well, with its first request; name look-ups may come before. They
    // are never ended: a look-up left to itself may be at work until the process ends.
    WSADATA datos = {};
    // Where it fails no socket can be had, and each request says so.
    static_cast<void>(::WSAStartup(MAKEWORD(2, 2), &datos));
    qunsetenv("SSLKEYLOGFILE");
}

curl_socket_t abrirZocalo(int familia, int tipo, int protocolo)
{
    return ::WSASocketW(familia, tipo, protocolo, nullptr, 0,
                        WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
}

// The system's own store, in which it looks by itself. Whether a certificate has been taken back
// is asked where that can be asked: a service that lists them and does not answer now would else
// keep every school out.
bool confiarEn(const BibliotecaCurl &curl, CURL *easy, const QByteArray &autoridades)
{
    constexpr auto sinExigirla = static_cast<long>(CURLSSLOPT_REVOKE_BEST_EFFORT);
    return curl.easy_setopt(easy, CURLOPT_SSL_OPTIONS, sinExigirla) == CURLE_OK
           && (autoridades.isEmpty()
               || curl.easy_setopt(easy, CURLOPT_CAINFO, autoridades.constData()) == CURLE_OK);
}

// By the system's store the library leaves the looking to the system's TLS, and has nothing in its
// hands by which it could tell that this was done.
bool esDeConfianza(const BibliotecaCurl &curl, CURL *easy, const QByteArray &autoridades)
{
    if (!autoridades.isEmpty())
        return true; // it has looked itself
    const std::optional<QString> nombre = nombreSeguro(curl, easy);
    if (!nombre || nombre->isEmpty())
        return nombre.has_value();
    const Certificado certificado = certificadoDe(curl, easy);
    const Cadena cadena = certificado ? cadenaDe(*certificado) : nullptr;
    return cadena && sirveA(*cadena, *nombre);
}

class Proxy::Interno {
public:
    ProxySistema sistema;
};

Proxy::Proxy() : d(std::make_unique<Interno>()) {}
Proxy::~Proxy() = default;

namespace {

// Whether the environment names a proxy for this address, which the library reads by itself. Of
// these names letter case is none.
bool nombradoEnElEntorno(const QByteArray &direccion)
{
    const char *propia = direccionHttp::esSegura(direccion) ? "https_proxy" : "http_proxy";
    return !qEnvironmentVariableIsEmpty(propia) || !qEnvironmentVariableIsEmpty("all_proxy");
}

} // namespace

bool Proxy::conocido(const QByteArray &direccion)
{
    return nombradoEnElEntorno(direccion) || d->sistema.conocido(direccion);
}

bool Proxy::poner(const BibliotecaCurl &curl, CURL *easy, const QByteArray &direccion) const
{
    if (nombradoEnElEntorno(direccion))
        return true;
    // An empty one is none, and nothing else is looked for.
    return curl.easy_setopt(easy, CURLOPT_PROXY, d->sistema.para(direccion).constData())
           == CURLE_OK;
}

// Not by a poll: that one misses connections that fail, on all but the latest systems.
void esperar(std::vector<Espera> &esperas, std::chrono::milliseconds alMas)
{
    if (esperas.empty()) {
        std::this_thread::sleep_for(alMas);
        return;
    }
    fd_set lectura = {};
    fd_set escritura = {};
    fd_set fallo = {};
    // There are never as many as a set can hold; one beyond would be the event loop's to see.
    for (const Espera &una : esperas) {
        if (una.leer)
            FD_SET(una.conexion, &lectura);
        if (una.escribir)
            FD_SET(una.conexion, &escritura);
        FD_SET(una.conexion, &fallo);
    }
    const auto microsegundos = std::chrono::microseconds(alMas).count();
    timeval tiempo = {static_cast<long>(microsegundos / 1'000'000),
                      static_cast<long>(microsegundos % 1'000'000)};
    const bool hay = ::select(0, &lectura, &escritura, &fallo, &tiempo) > 0;
    for (Espera &una : esperas) {
        const bool fallida = FD_ISSET(una.conexion, &fallo) != 0;
        una.leer = hay && una.leer && (fallida || FD_ISSET(una.conexion, &lectura) != 0);
        una.escribir = hay && una.escribir && (fallida || FD_ISSET(una.conexion, &escritura) != 0);
    }
}

// The event loop's own wait goes on here after it has handed out what had been posted before (a
// timer's end, say), though that may have been what the caller waits for. So it is turned without
// a wait, after one for the system's messages that has an end: not all that is to be handed out is
// told by one.
void girar()
{
    constexpr DWORD alMas = 10; // milliseconds
    static_cast<void>(          // whatever it says, what there is gets handed out
        ::MsgWaitForMultipleObjectsEx(0, nullptr, alMas, QS_ALLINPUT,
                                      MWMO_ALERTABLE | MWMO_INPUTAVAILABLE));
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

// Of a connection that was refused before the loop began to watch it no message comes.
bool avisaDeTodo()
{
    return false;
}

// To "connect" a datagram socket is to look for a route and no more.
bool haySalida(const void *direccion, std::size_t largo)
{
    const auto *par = static_cast<const sockaddr *>(direccion);
    const SOCKET zocalo = abrirZocalo(par->sa_family, SOCK_DGRAM, 0);
    if (zocalo == INVALID_SOCKET)
        return true; // not known
    bool hay = true;
    if (::connect(zocalo, par, static_cast<int>(largo)) != 0) {
        const int error = ::WSAGetLastError();
        hay = error != WSAENETUNREACH && error != WSAEHOSTUNREACH && error != WSAENETDOWN
              && error != WSAEADDRNOTAVAIL;
    } else {
        sockaddr_storage propia = {};
        int cuanto = sizeof propia;
        hay = ::getsockname(zocalo, reinterpret_cast<sockaddr *>(&propia), &cuanto) != 0
              || conectada(propia);
    }
    // It held nothing.
    static_cast<void>(::closesocket(zocalo));
    return hay;
}

// Without a network the system says of every name that it does not exist.
Busqueda buscar(const QByteArray &nombre)
{
    ADDRINFOW pedido = {};
    pedido.ai_socktype = SOCK_STREAM;
    PADDRINFOW hallado = nullptr;
    const std::wstring escrito = QString::fromUtf8(nombre).toStdWString();
    const int error = ::GetAddrInfoW(escrito.c_str(), nullptr, &pedido, &hallado);
    if (hallado)
        ::FreeAddrInfoW(hallado);
    const bool porAhora =
        error == WSATRY_AGAIN || error == WSAENETDOWN || (error == WSAHOST_NOT_FOUND && !enRed());
    return error == 0 || porAhora ? Busqueda::OtraVez : Busqueda::No;
}

} // namespace HttpClientSistema
