#include "platform/HttpClient.h"
#include "platform/HttpClientSistema.h"
#include "platform/direccionHttp.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <map>
#include <vector>

#include <curl/curl.h>

namespace {

using Reloj = std::chrono::steady_clock;

constexpr int redireccionesMaximas = 10;

// One request on its way.
struct Transferencia {
    std::function<bool(const char *, qsizetype)> recibir; // false: give up
    Reloj::time_point ultimoByte = Reloj::now();
    CURL *easy = nullptr;
    CURLcode resultado = CURLE_OK;
    bool terminada = false;
    QByteArray lugar;            // the other address that the reply's headers name
    bool cabeceraEntera = false; // the empty line after them has come

    // The body of a redirect's own reply is nobody's.
    bool cuerpoSobra() const
    {
        long estado = 0;
        curl_easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &estado);
        return direccionHttp::esRedireccion(estado) && !lugar.isEmpty();
    }
};

size_t alRecibirCuerpo(char *datos, size_t, size_t cuantos, void *quien)
{
    auto &transferencia = *static_cast<Transferencia *>(quien);
    transferencia.ultimoByte = Reloj::now();
    if (transferencia.cuerpoSobra())
        return cuantos;
    return transferencia.recibir(datos, static_cast<qsizetype>(cuantos)) ? cuantos : 0;
}

size_t alRecibirCabecera(char *datos, size_t, size_t cuantos, void *quien)
{
    auto &transferencia = *static_cast<Transferencia *>(quien);
    transferencia.ultimoByte = Reloj::now();
    const auto linea = QByteArray::fromRawData(datos, static_cast<qsizetype>(cuantos));
    if (linea.startsWith("HTTP/")) {
        transferencia.lugar.clear();
        transferencia.cabeceraEntera = false;
    } else if (linea.trimmed().isEmpty()) {
        transferencia.cabeceraEntera = true;
    } else if (!transferencia.cabeceraEntera && transferencia.lugar.isEmpty()
               && linea.left(9).toLower() == "location:") {
        transferencia.lugar = linea.mid(9).trimmed();
    }
    return cuantos;
}

// The silence of a transfer counts from its connection, which has a limit of its own.
int alConectar(void *quien, char *, char *, int, int)
{
    static_cast<Transferencia *>(quien)->ultimoByte = Reloj::now();
    return CURL_PREREQFUNC_OK;
}

int alAbrirConexion(void *, curl_socket_t conexion, curlsocktype)
{
    HttpClientSistema::noHeredar(static_cast<int>(conexion));
    return CURL_SOCKOPT_OK;
}

// The notifiers of one socket.
struct Vigia {
    std::unique_ptr<QSocketNotifier> lectura;
    std::unique_ptr<QSocketNotifier> escritura;
};

} // namespace

class HttpClient::Interno : public QObject {
public:
    Interno(const QString &autoridades, const Limites &limites)
        : m_autoridades(autoridades.toUtf8()), m_limites(limites)
    {
        HttpClientSistema::preparar();
        curl_global_init(CURL_GLOBAL_DEFAULT);
        m_multi = curl_multi_init();
        curl_multi_setopt(m_multi, CURLMOPT_SOCKETFUNCTION, &Interno::alCambiarSocket);
        curl_multi_setopt(m_multi, CURLMOPT_SOCKETDATA, this);
        curl_multi_setopt(m_multi, CURLMOPT_TIMERFUNCTION, &Interno::alCambiarPlazo);
        curl_multi_setopt(m_multi, CURLMOPT_TIMERDATA, this);
        m_comun = curl_share_init();
        curl_share_setopt(m_comun, CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
        curl_share_setopt(m_comun, CURLSHOPT_SHARE, CURL_LOCK_DATA_DNS);
        curl_share_setopt(m_comun, CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
        m_plazo.setSingleShot(true);
        m_plazo.setTimerType(Qt::PreciseTimer);
        connect(&m_plazo, &QTimer::timeout, this, [this] { actuar(CURL_SOCKET_TIMEOUT, 0); });
    }

    ~Interno() override
    {
        for (CURL *easy : m_libres)
            curl_easy_cleanup(easy);
        curl_multi_cleanup(m_multi);
        curl_share_cleanup(m_comun);
    }

    struct Respuesta {
        CURLcode resultado = CURLE_OK;
        long estado = 0;
        bool sigue = false;                      // it leads to another address
        std::optional<QByteArray> otraDireccion; // absolute; nothing when it cannot be read
    };

    // Sends one request and waits for its reply. `protocolos`: the only ones that it may use.
    Respuesta pedir(const direccionHttp::Partes &direccion, const char *protocolos,
                    const Cabeceras &cabeceras,
                    const std::function<bool(const char *, qsizetype)> &recibir)
    {
        Transferencia transferencia;
        transferencia.recibir = recibir;
        transferencia.easy = tomar();
        curl_slist *lista = nullptr;
        for (const auto &[nombre, valor] : cabeceras)
            lista = curl_slist_append(lista, (nombre + ": " + valor).constData());
        preparar(transferencia, direccion, protocolos, lista);

        curl_multi_add_handle(m_multi, transferencia.easy);
        esperar(transferencia);

        Respuesta respuesta;
        respuesta.resultado = transferencia.resultado;
        // The library takes headers that break off for a reply with an empty body.
        if (respuesta.resultado == CURLE_OK && !transferencia.cabeceraEntera)
            respuesta.resultado = CURLE_GOT_NOTHING;
        curl_easy_getinfo(transferencia.easy, CURLINFO_RESPONSE_CODE, &respuesta.estado);
        respuesta.sigue = transferencia.cuerpoSobra();
        if (respuesta.sigue)
            respuesta.otraDireccion = direccionHttp::direccionDe(
                transferencia.lugar, direccion.servidor + direccion.destino);
        curl_slist_free_all(lista);
        m_libres.push_back(transferencia.easy);
        return respuesta;
    }

    // The same through its redirects. They are followed here and not by the library, which would
    // send the first request's target to each further address. Once the way is a safe one it stays
    // so: the library, too, is then allowed no other protocol, whatever it makes of an address.
    std::optional<long> seguir(const QByteArray &direccion, const Cabeceras &cabeceras,
                               const std::function<bool(const char *, qsizetype)> &recibir)
    {
        direccionHttp::Partes actual = direccionHttp::separar(direccion);
        bool segura = direccionHttp::esSegura(direccion);
        for (int saltos = 0;; ++saltos) {
            const Respuesta respuesta =
                pedir(actual, segura ? "https" : "http,https", cabeceras, recibir);
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

    qint64 limiteTexto() const { return m_limites.texto; }

private:
    CURL *tomar()
    {
        if (m_libres.empty())
            return curl_easy_init();
        CURL *easy = m_libres.back();
        m_libres.pop_back();
        curl_easy_setopt(easy, CURLOPT_COOKIEFILE, nullptr); // which a reset would lose
        curl_easy_reset(easy);
        return easy;
    }

    void preparar(Transferencia &transferencia, const direccionHttp::Partes &direccion,
                  const char *protocolos, curl_slist *lista)
    {
        CURL *easy = transferencia.easy;
        curl_easy_setopt(easy, CURLOPT_URL, (direccion.servidor + direccion.destino).constData());
        curl_easy_setopt(easy, CURLOPT_REQUEST_TARGET, direccion.destino.constData());
        curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
        curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, protocolos);
        // Through a plain proxy the target would have to be a whole address; in a tunnel it is
        // the caller's.
        curl_easy_setopt(easy, CURLOPT_HTTPPROXYTUNNEL, 1L);
        curl_easy_setopt(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
        curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1);
        curl_easy_setopt(easy, CURLOPT_HTTPHEADER, lista);
        curl_easy_setopt(easy, CURLOPT_USERAGENT, "Parvanel/4.0");
        curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
        curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, 1L);
        curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
        curl_easy_setopt(easy, CURLOPT_SHARE, m_comun);
        curl_easy_setopt(easy, CURLOPT_COOKIEFILE, ""); // memory only
        curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
        // A look-up that goes on after its request has been given up is left to itself: the
        // library would wait for its thread, and the window with it, as long as a name server
        // keeps silent.
        curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
        curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS,
                         static_cast<long>(m_limites.conexion.count()));
        curl_easy_setopt(easy, CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2);
        // One bundle and no folder of certificates: only so is the bundle parsed once and not
        // at every connection (19 ms of CPU each).
        curl_easy_setopt(easy, CURLOPT_CAINFO, m_autoridades.constData());
        curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr);
        curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &alRecibirCuerpo);
        curl_easy_setopt(easy, CURLOPT_WRITEDATA, &transferencia);
        curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &alRecibirCabecera);
        curl_easy_setopt(easy, CURLOPT_HEADERDATA, &transferencia);
        curl_easy_setopt(easy, CURLOPT_SOCKOPTFUNCTION, &alAbrirConexion);
        curl_easy_setopt(easy, CURLOPT_PREREQFUNCTION, &alConectar);
        curl_easy_setopt(easy, CURLOPT_PREREQDATA, &transferencia);
        curl_easy_setopt(easy, CURLOPT_PRIVATE, &transferencia);
    }

    // Turns the event loop until the transfer has ended. No callback of the library does so:
    // they only note what has happened.
    void esperar(Transferencia &transferencia)
    {
        QTimer silencio;
        silencio.setSingleShot(true);
        connect(&silencio, &QTimer::timeout, this, [this, &transferencia, &silencio] {
            if (transferencia.terminada) // and a wait above keeps this one from returning
                return;
            const auto quieta = std::chrono::duration_cast<std::chrono::milliseconds>(
                Reloj::now() - transferencia.ultimoByte);
            if (quieta < m_limites.silencio) {
                silencio.start(m_limites.silencio - quieta);
                return;
            }
            terminar(transferencia, CURLE_OPERATION_TIMEDOUT);
        });
        silencio.start(m_limites.silencio);
        while (!transferencia.terminada) {
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
            m_retirados.clear();
        }
    }

    void actuar(curl_socket_t conexion, int suceso)
    {
        int enMarcha = 0;
        curl_multi_socket_action(m_multi, conexion, suceso, &enMarcha);
        int restantes = 0;
        while (CURLMsg *mensaje = curl_multi_info_read(m_multi, &restantes)) {
            if (mensaje->msg != CURLMSG_DONE)
                continue;
            Transferencia *transferencia = nullptr;
            curl_easy_getinfo(mensaje->easy_handle, CURLINFO_PRIVATE, &transferencia);
            terminar(*transferencia, mensaje->data.result);
        }
    }

    // The end, whichever came first. The library lets go of the transfer here and now, with its
    // connection: the wait for it may go on for long below others, and until then nothing more
    // may be written for it.
    void terminar(Transferencia &transferencia, CURLcode resultado)
    {
        transferencia.resultado = resultado;
        transferencia.terminada = true;
        curl_multi_remove_handle(m_multi, transferencia.easy);
    }

    std::unique_ptr<QSocketNotifier> vigilar(curl_socket_t conexion, QSocketNotifier::Type tipo,
                                             int suceso)
    {
        auto aviso = std::make_unique<QSocketNotifier>(static_cast<qintptr>(conexion), tipo);
        connect(aviso.get(), &QSocketNotifier::activated, this,
                [this, conexion, suceso] { actuar(conexion, suceso); });
        return aviso;
    }

    static int alCambiarSocket(CURL *, curl_socket_t conexion, int que, void *quien, void *)
    {
        auto &yo = *static_cast<Interno *>(quien);
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

    static int alCambiarPlazo(CURLM *, long milisegundos, void *quien)
    {
        auto &yo = *static_cast<Interno *>(quien);
        if (milisegundos < 0)
            yo.m_plazo.stop();
        else
            yo.m_plazo.start(std::chrono::milliseconds(milisegundos));
        return 0;
    }

    // A notifier may be the one whose signal is just being handled: it is switched off here and
    // deleted by the wait that turned the loop.
    void retirar(Vigia &vigia)
    {
        for (auto *aviso : {&vigia.lectura, &vigia.escritura}) {
            if (!*aviso)
                continue;
            (*aviso)->setEnabled(false);
            (*aviso)->disconnect();
            m_retirados.push_back(std::move(*aviso));
        }
    }

    QByteArray m_autoridades;
    Limites m_limites;
    CURLM *m_multi = nullptr;
    CURLSH *m_comun = nullptr;
    std::vector<CURL *> m_libres;
    std::map<curl_socket_t, Vigia> m_vigias;
    std::vector<std::unique_ptr<QSocketNotifier>> m_retirados;
    QTimer m_plazo;
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
    const auto recibir = [&](const char *datos, qsizetype cuantos) {
        if (cuerpo.size() + cuantos > d->limiteTexto())
            return false;
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
