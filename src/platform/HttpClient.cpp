// SPDX-License-Identifier: MIT
#include "platform/HttpClient.h"
#include "BibliotecaCurl.h"
#include "HttpClientSistema.h"
#include "IntentosHttp.h"
#include "MotorHttp.h"
#include "TransferenciaHttp.h"
#include "platform/direccionHttp.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

constexpr int redireccionesMaximas = 10;
constexpr auto entreMiradas = std::chrono::milliseconds(20);

using Manija = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using Comun = std::unique_ptr<CURLSH, decltype(&curl_share_cleanup)>;
using Lista = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

// Counts a request for as long as its caller waits.
class EnCurso {
public:
    explicit EnCurso(int &cuantas) : m_cuantas(cuantas) { ++m_cuantas; }
    ~EnCurso() { --m_cuantas; }
    EnCurso(const EnCurso &) = delete;
    EnCurso &operator=(const EnCurso &) = delete;

private:
    int &m_cuantas;
};

// Null when there are no headers, and when one of them could not be added.
Lista listaDe(const BibliotecaCurl &curl, const HttpClient::Cabeceras &cabeceras)
{
    Lista lista(nullptr, curl.slist_free_all);
    for (const auto &[nombre, valor] : cabeceras) {
        curl_slist *mas = curl.slist_append(lista.get(), (nombre + ": " + valor).constData());
        if (!mas)
            return {nullptr, curl.slist_free_all};
        static_cast<void>(lista.release()); // the same list, by its first member
        lista.reset(mas);
    }
    return lista;
}

// All that requests need and share, from the first one on.
class Peticiones {
public:
    using Cabeceras = HttpClient::Cabeceras;

    Peticiones(const BibliotecaCurl &curl, const QByteArray &autoridades,
               const HttpClient::Limites &limites)
        : m_curl(curl), m_autoridades(autoridades), m_limites(limites),
          m_comienzo(curl.global_init(CURL_GLOBAL_DEFAULT)),
          m_comun(curl.share_init(), curl.share_cleanup),
          m_motor(m_curl, [this](CURL *easy, CURLcode resultado) { alTerminar(easy, resultado); }),
          m_listo(m_comienzo == CURLE_OK && m_comun && m_motor.listo())
    {
        for (const curl_lock_data que :
             {CURL_LOCK_DATA_COOKIE, CURL_LOCK_DATA_DNS, CURL_LOCK_DATA_SSL_SESSION})
            m_listo =
                m_listo && m_curl.share_setopt(m_comun.get(), CURLSHOPT_SHARE, que) == CURLSHE_OK;
    }

    // Whether all of it could be had. Every request fails otherwise, without a wait.
    bool listo() const { return m_listo; }

    struct Respuesta {
        CURLcode resultado = CURLE_OK;
        long estado = 0;
        bool sigue = false;                      // it leads to another address
        std::optional<QByteArray> otraDireccion; // absolute; nothing when it cannot be read
    };

    // Sends one request and waits for its reply. `protocolos`: the only ones that it may use.
    // `pronto`: until then the event loop need not turn.
    Respuesta pedir(const direccionHttp::Partes &direccion, const char *protocolos,
                    const Cabeceras &cabeceras, const TransferenciaHttp::Recibir &recibir,
                    MotorHttp::Reloj::time_point pronto)
    {
        Respuesta respuesta;
        respuesta.resultado = CURLE_FAILED_INIT;
        Manija manija = m_listo ? tomar() : ninguna();
        const Lista lista = listaDe(m_curl, cabeceras);
        if (!manija || (!lista && !cabeceras.isEmpty()))
            return respuesta;
        TransferenciaHttp transferencia(m_curl, manija.get(), recibir, m_limites.texto,
                                        m_autoridades);
        if (!preparar(transferencia, direccion, protocolos, lista.get()))
            return respuesta;

        esperar(transferencia, pronto);

        respuesta.resultado = transferencia.resultado;
        // The library takes headers that break off for a reply with an empty body.
        if (respuesta.resultado == CURLE_OK && !transferencia.entera())
            respuesta.resultado = CURLE_PARTIAL_FILE;
        respuesta.estado = transferencia.estado();
        const QByteArray lugar = transferencia.otroLugar();
        respuesta.sigue = !lugar.isEmpty();
        if (respuesta.sigue)
            respuesta.otraDireccion =
                direccionHttp::direccionDe(lugar, direccion.servidor + direccion.destino);
        m_libres.push_back(std::move(manija));
        return respuesta;
    }

    // The same through its redirects. They are followed here and not by the library, which would
    // send the first request's target to each further address. Once the way is a safe one it stays
    // so: the library, too, is then allowed no other protocol, whatever it makes of an address. All
    // of them together are one wait for the window, whose loop turns as it would in any other.
    std::optional<long> seguir(const QByteArray &direccion, const Cabeceras &cabeceras,
                               const TransferenciaHttp::Recibir &recibir)
    {
        if (m_enCurso == HttpClient::peticionesMaximas)
            return std::nullopt;
        const EnCurso esta(m_enCurso);
        direccionHttp::Partes actual = direccionHttp::separar(direccion);
        bool segura = direccionHttp::esSegura(direccion);
        esperarProxy(actual.servidor);
        const auto pronto = MotorHttp::prontoDesdeAhora();
        for (int saltos = 0;; ++saltos) {
            const Respuesta respuesta =
                pedir(actual, segura ? "https" : "http,https", cabeceras, recibir, pronto);
            if (respuesta.resultado != CURLE_OK)
                return std::nullopt;
            if (!respuesta.sigue)
                return respuesta.estado;
            if (saltos == redireccionesMaximas || !respuesta.otraDireccion)
                return std::nullopt;
            if (segura && !direccionHttp::esSegura(*respuesta.otraDireccion))
                return std::nullopt;
            segura = direccionHttp::esSegura(*respuesta.otraDireccion);
            actual = direccionHttp::separar(*respuesta.otraDireccion);
        }
    }

private:
    Manija ninguna() const { return {nullptr, m_curl.easy_cleanup}; }

    // Null when there is none to be had.
    Manija tomar()
    {
        if (m_libres.empty())
            return {m_curl.easy_init(), m_curl.easy_cleanup};
        Manija manija = std::move(m_libres.back());
        m_libres.pop_back();
        // Which a reset would lose.
        if (m_curl.easy_setopt(manija.get(), CURLOPT_COOKIEFILE, nullptr) != CURLE_OK)
            return ninguna();
        m_curl.easy_reset(manija.get());
        return manija;
    }

    // False when an option could not be set. The request must not go out then: it might be without
    // what protects it.
    bool preparar(TransferenciaHttp &transferencia, const direccionHttp::Partes &direccion,
                  const char *protocolos, curl_slist *lista)
    {
        bool bien = true;
        const auto poner = [&](CURLoption opcion, auto valor) {
            bien = bien && m_curl.easy_setopt(transferencia.easy, opcion, valor) == CURLE_OK;
        };
        poner(CURLOPT_URL, (direccion.servidor + direccion.destino).constData());
        poner(CURLOPT_REQUEST_TARGET, direccion.destino.constData());
        poner(CURLOPT_PATH_AS_IS, 1L);
        poner(CURLOPT_PROTOCOLS_STR, protocolos);
        // Through a plain proxy the target would have to be a whole address; in a tunnel it is
        // the caller's.
        poner(CURLOPT_HTTPPROXYTUNNEL, 1L);
        poner(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
        poner(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        poner(CURLOPT_HTTPHEADER, lista);
        poner(CURLOPT_USERAGENT, "Parvanel/4.0");
        poner(CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
        poner(CURLOPT_HTTP_CONTENT_DECODING, 0L); // or half a body counts: see DecodificacionHttp
        poner(CURLOPT_FRESH_CONNECT, 1L);
        poner(CURLOPT_FORBID_REUSE, 1L);
        poner(CURLOPT_SHARE, m_comun.get());
        poner(CURLOPT_COOKIEFILE, ""); // memory only
        poner(CURLOPT_NOSIGNAL, 1L);
        // A look-up that goes on after its request has been given up is left to itself: the
        // library would wait for its thread, and the window with it, as long as a name server
        // keeps silent.
        poner(CURLOPT_QUICK_EXIT, 1L);
        poner(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
        poner(CURLOPT_SSL_VERIFYPEER, 1L);
        poner(CURLOPT_SSL_VERIFYHOST, 2L);
        return bien && HttpClientSistema::confiarEn(m_curl, transferencia.easy, m_autoridades)
               && m_proxy.poner(m_curl, transferencia.easy, direccion.servidor)
               && transferencia.atender();
    }

    // The first request waits until it is known which way requests go, while the event loop turns,
    // and never longer than a connection may take: what is not known then is none, for as long as
    // it is not. Where nothing has to be found out it does not turn.
    void esperarProxy(const QByteArray &servidor)
    {
        if (!m_listo || m_proxyEsperado || m_proxy.conocido(servidor))
            return;
        const auto hasta = MotorHttp::Reloj::now() + m_limites.conexion;
        QTimer mirada;
        mirada.start(entreMiradas);
        while (!m_proxy.conocido(servidor) && MotorHttp::Reloj::now() < hasta)
            m_motor.girar();
        m_proxyEsperado = true;
    }

    // Turns the event loop until the transfer has ended. No callback of the library does so:
    // they only note what has happened.
    void esperar(TransferenciaHttp &transferencia, MotorHttp::Reloj::time_point pronto)
    {
        IntentosHttp intentos(transferencia, m_motor, m_limites,
                              [&](CURLcode resultado) { terminar(transferencia, resultado); });
        transferencia.intentos = &intentos;
        intentos.empezar();
        m_motor.esperarDeCerca(transferencia.terminada, pronto);
        if (!transferencia.terminada) {
            transferencia.mirarSalida();
            contarSilencio(transferencia);
        }
        while (!transferencia.terminada)
            m_motor.girar();
        transferencia.intentos = nullptr;
    }

    void contarSilencio(TransferenciaHttp &transferencia)
    {
        QTimer &silencio = transferencia.silencio.emplace();
        silencio.setSingleShot(true);
        QObject::connect(&silencio, &QTimer::timeout, &silencio, [this, &transferencia] {
            const auto quieta = transferencia.quieta();
            if (quieta < m_limites.silencio)
                transferencia.silencio->start(m_limites.silencio - quieta);
            else
                terminar(transferencia, CURLE_OPERATION_TIMEDOUT);
        });
        silencio.start(m_limites.silencio);
    }

    // What the library has done with a transfer.
    void alTerminar(CURL *easy, CURLcode resultado)
    {
        m_motor.quitar(easy);
        TransferenciaHttp *transferencia = nullptr;
        m_curl.easy_getinfo(easy, CURLINFO_PRIVATE, &transferencia);
        m_haContestado = m_haContestado || transferencia->cabeceraEntera();
        if (!m_haContestado || !transferencia->intentos->otroTras(resultado))
            terminar(*transferencia, resultado);
    }

    // The end, whichever came first. The library lets go of the transfer here and now, with its
    // connection, and its silence counts no longer: the wait for it may go on for long below
    // others.
    void terminar(TransferenciaHttp &transferencia, CURLcode resultado)
    {
        transferencia.resultado = resultado;
        transferencia.terminada = true;
        if (transferencia.silencio)
            transferencia.silencio->stop();
        m_motor.quitar(transferencia.easy);
    }

    BibliotecaCurl m_curl;
    QByteArray m_autoridades;
    HttpClient::Limites m_limites;
    // In this order, and undone in the other: what is shared outlives the transfers' engine and
    // the handles that share it. How the library was begun is never undone: a name look-up that
    // was left to itself may be at work in it until the process ends.
    CURLcode m_comienzo;
    Comun m_comun;
    MotorHttp m_motor;
    bool m_listo = false; // all of them could be had
    std::vector<Manija> m_libres;
    HttpClientSistema::Proxy m_proxy;
    bool m_proxyEsperado = false; // as long as it is waited for at all
    bool m_haContestado = false;  // the service, in this process
    int m_enCurso = 0;            // requests, one within the other
};

} // namespace

class HttpClient::Interno {
public:
    Interno(const QString &autoridades, const Limites &limites)
        : m_autoridades(autoridades.toUtf8()), m_limites(limites)
    {
        HttpClientSistema::preparar();
    }

    // As `Peticiones` does. What the first request cannot have makes it fail, and the next one
    // tries to have it again.
    std::optional<long> seguir(const QByteArray &direccion, const Cabeceras &cabeceras,
                               const TransferenciaHttp::Recibir &recibir)
    {
        if (!m_peticiones || !m_peticiones->listo())
            empezar();
        return m_peticiones ? m_peticiones->seguir(direccion, cabeceras, recibir) : std::nullopt;
    }

    qint64 limiteTexto() const { return m_limites.texto; }

private:
    void empezar()
    {
        if (const auto curl = BibliotecaCurl::traer())
            m_peticiones.emplace(*curl, m_autoridades, m_limites);
    }

    QByteArray m_autoridades;
    Limites m_limites;
    std::optional<Peticiones> m_peticiones;
};

HttpClient::HttpClient(const QString &autoridades) : HttpClient(autoridades, Limites()) {}

HttpClient::HttpClient(const QString &autoridades, const Limites &limites)
    : d(std::make_unique<Interno>(autoridades, limites))
{
}

HttpClient::~HttpClient() = default;

std::optional<QByteArray> HttpClient::get(const QByteArray &direccion, const Cabeceras &cabeceras)
{
    QByteArray cuerpo;
    const qint64 limite = d->limiteTexto();
    const auto recibir = [&](const char *datos, qsizetype cuantos) {
        const qsizetype nuevo = cuerpo.size() + cuantos;
        if (nuevo > limite)
            return false;
        // Growing by itself it would copy, and hold a long body twice.
        if (nuevo > cuerpo.capacity())
            cuerpo.reserve(std::min<qint64>(limite, 2 * nuevo));
        cuerpo.append(datos, cuantos);
        return true;
    };
    if (!d->seguir(direccion, cabeceras, recibir))
        return std::nullopt;
    return cuerpo;
}

bool HttpClient::getArchivo(const QByteArray &direccion, QIODevice &destino)
{
    const auto recibir = [&](const char *datos, qsizetype cuantos) {
        return destino.write(datos, cuantos) == cuantos;
    };
    const auto estado = d->seguir(direccion, {}, recibir);
    return estado && *estado < 400;
}
