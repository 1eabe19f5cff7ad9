// SPDX-License-Identifier: MIT
#include "TransferenciaHttp.h"
#include "HttpClientSistema.h"
#include "platform/direccionHttp.h"

#include <algorithm>
#include <functional>

namespace {

// Of the lines before a reply's body and after it. The library bounds the former by itself, at as
// much; it keeps what comes after a body without end.
constexpr size_t cabeceraMaxima = size_t(300) * 1024;

bool haySalida(const QByteArray &direccion)
{
    return HttpClientSistema::haySalida(direccion.constData(),
                                        static_cast<std::size_t>(direccion.size()));
}

} // namespace

bool TransferenciaHttp::atender()
{
    bool bien = true;
    const auto poner = [&](CURLoption opcion, auto valor) {
        bien = bien && m_curl.easy_setopt(easy, opcion, valor) == CURLE_OK;
    };
    poner(CURLOPT_WRITEFUNCTION, &TransferenciaHttp::alRecibirCuerpo);
    poner(CURLOPT_WRITEDATA, this);
    poner(CURLOPT_HEADERFUNCTION, &TransferenciaHttp::alRecibirCabecera);
    poner(CURLOPT_HEADERDATA, this);
    poner(CURLOPT_OPENSOCKETFUNCTION, &TransferenciaHttp::alAbrirZocalo);
    poner(CURLOPT_OPENSOCKETDATA, this);
    poner(CURLOPT_ERRORBUFFER, m_error.data());
    poner(CURLOPT_PREREQFUNCTION, &TransferenciaHttp::alConectar);
    poner(CURLOPT_PREREQDATA, this);
    poner(CURLOPT_PRIVATE, this);
    return bien;
}

// The library writes there whenever it has an error to tell, at its cleaning up as well. It cannot
// refuse to be given none.
TransferenciaHttp::~TransferenciaHttp()
{
    static_cast<void>(m_curl.easy_setopt(easy, CURLOPT_ERRORBUFFER, nullptr));
}

bool TransferenciaHttp::renovar(long conexion)
{
    m_error.front() = '\0';
    m_conSalida.clear();
    m_sinSalida = 0;
    return m_curl.easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, conexion) == CURLE_OK;
}

std::chrono::milliseconds TransferenciaHttp::quieta() const
{
    if (!m_conectada)
        return std::chrono::milliseconds::zero();
    return std::chrono::duration_cast<std::chrono::milliseconds>(Reloj::now() - m_ultimoByte);
}

void TransferenciaHttp::mirarSalida()
{
    m_mirarSalida = true;
    if (!m_conectada)
        m_sinSalida += static_cast<int>(m_conSalida.removeIf(std::not_fn(haySalida)));
}

bool TransferenciaHttp::sinSalida() const
{
    return (m_sinSalida > 0 || !m_conSalida.empty())
           && std::none_of(m_conSalida.begin(), m_conSalida.end(), haySalida);
}

// The library says it in words alone: "Could not resolve proxy: name".
QByteArray TransferenciaHttp::nombreBuscado() const
{
    const QByteArray error(m_error.data());
    if (!error.startsWith("Could not resolve "))
        return {};
    return error.mid(error.lastIndexOf(": ") + 2);
}

long TransferenciaHttp::estado() const
{
    long numero = 0;
    // It stays 0 when there is nothing to tell.
    static_cast<void>(m_curl.easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &numero));
    return numero;
}

QByteArray TransferenciaHttp::otroLugar() const
{
    return direccionHttp::esRedireccion(estado()) ? m_lugar : QByteArray();
}

size_t TransferenciaHttp::alRecibirCuerpo(char *datos, size_t, size_t cuantos, void *quien)
{
    auto &yo = *static_cast<TransferenciaHttp *>(quien);
    yo.m_ultimoByte = Reloj::now();
    if (!yo.m_cuerpo || !yo.m_cuerpo->pasar(datos, static_cast<qsizetype>(cuantos)))
        return 0;
    return cuantos;
}

size_t TransferenciaHttp::alRecibirCabecera(char *datos, size_t, size_t cuantos, void *quien)
{
    auto &yo = *static_cast<TransferenciaHttp *>(quien);
    yo.m_ultimoByte = Reloj::now();
    yo.m_bytesDeCabecera += cuantos;
    if (yo.m_bytesDeCabecera > cabeceraMaxima)
        return 0;
    yo.recibirCabecera(QByteArray::fromRawData(datos, static_cast<qsizetype>(cuantos)));
    return cuantos;
}

// Called for each address of the peer's that is tried.
curl_socket_t TransferenciaHttp::alAbrirZocalo(void *quien, curlsocktype, curl_sockaddr *direccion)
{
    auto &yo = *static_cast<TransferenciaHttp *>(quien);
    yo.m_conSalida.append(
        QByteArray(reinterpret_cast<const char *>(&direccion->addr), direccion->addrlen));
    if (yo.m_mirarSalida)
        yo.mirarSalida();
    return HttpClientSistema::abrirZocalo(direccion->family, direccion->socktype,
                                          direccion->protocol);
}

int TransferenciaHttp::alConectar(void *quien, char *, char *, int, int)
{
    auto &yo = *static_cast<TransferenciaHttp *>(quien);
    yo.m_conectada = true;
    yo.m_ultimoByte = Reloj::now();
    return HttpClientSistema::esDeConfianza(yo.m_curl, yo.easy, yo.m_autoridades)
               ? CURL_PREREQFUNC_OK
               : CURL_PREREQFUNC_ABORT;
}

// A warning (status 1xx) has headers of its own before those of the reply, and what follows the
// empty line of these comes after the body.
void TransferenciaHttp::recibirCabecera(const QByteArray &linea)
{
    if (m_definitiva)
        return;
    if (linea.startsWith("HTTP/")) {
        m_lugar.clear();
        m_codificaciones.clear();
        m_cabeceraEntera = false;
    } else if (linea.trimmed().isEmpty()) {
        terminarCabecera();
    } else if (!m_cabeceraEntera) {
        leerCabecera(linea);
    }
}

void TransferenciaHttp::leerCabecera(const QByteArray &linea)
{
    const auto *const dosPuntos = std::find(linea.begin(), linea.end(), ':');
    const QByteArrayView nombre(linea.begin(), dosPuntos);
    const auto es = [&](QByteArrayView otro) {
        return nombre.compare(otro, Qt::CaseInsensitive) == 0;
    };
    const bool enTransporte = es("transfer-encoding");
    const bool deLugar = es("location");
    if (!deLugar && !enTransporte && !es("content-encoding"))
        return;
    const QByteArray valor = linea.mid(nombre.size() + 1).trimmed();
    if (deLugar) {
        if (m_lugar.isEmpty())
            m_lugar = valor;
        return;
    }
    for (const QByteArray &una : valor.split(',')) {
        const QByteArray codificacion = una.trimmed();
        // Chunks are the library's business.
        if (!codificacion.isEmpty() && !(enTransporte && codificacion.toLower() == "chunked"))
            m_codificaciones.append(codificacion);
    }
}

void TransferenciaHttp::terminarCabecera()
{
    m_cabeceraEntera = true;
    m_definitiva = estado() >= 200;
    m_cuerpo = std::make_unique<DecodificacionHttp>(
        m_codificaciones,
        [this](const char *datos, qsizetype cuantos) { return recibirCuerpo(datos, cuantos); });
}

// The body of a redirect's own reply is nobody's, and yet may not go on for ever.
bool TransferenciaHttp::recibirCuerpo(const char *datos, qsizetype cuantos)
{
    if (otroLugar().isEmpty())
        return m_recibir(datos, cuantos);
    m_salto += cuantos;
    return m_salto <= m_limiteSalto;
}
