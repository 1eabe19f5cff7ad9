// SPDX-License-Identifier: MIT
// One request on its way: the library's transfer, and what has come of its reply.
#pragma once

#include "BibliotecaCurl.h"
#include "decodificacionHttp.h"

#include <QByteArray>
#include <QList>
#include <QTimer>

#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class IntentosHttp;

class TransferenciaHttp {
public:
    // Takes a piece of the body. False: the request is to be given up.
    using Recibir = std::function<bool(const char *, qsizetype)>;
    using Reloj = std::chrono::steady_clock;

    // `curl` and `easy` are borrowed, and must outlive the object. The object must not move: the
    // library holds its address. What `recibir` refers to must outlive it. `limiteSalto`: how many
    // bytes a redirect's own body may have. `autoridades`: of HttpClientSistema.
    TransferenciaHttp(const BibliotecaCurl &curl, CURL *easy, const Recibir &recibir,
                      qint64 limiteSalto, const QByteArray &autoridades)
        : easy(easy), m_curl(curl), m_recibir(recibir), m_limiteSalto(limiteSalto),
          m_autoridades(autoridades)
    {
    }
    ~TransferenciaHttp();
    TransferenciaHttp(const TransferenciaHttp &) = delete;
    TransferenciaHttp &operator=(const TransferenciaHttp &) = delete;

    // Has the library's callbacks call this object. False: it could not be done.
    bool atender();
    // Made ready for an attempt that has this many milliseconds for its connection. False: it
    // cannot be made.
    bool renovar(long conexion);

    CURL *const easy;
    CURLcode resultado = CURLE_OK; // when it has ended
    bool terminada = false;
    std::optional<QTimer> silencio;   // there when the reply does not come at once
    IntentosHttp *intentos = nullptr; // borrowed: those of this transfer

    // How long no byte has moved since the connection was made, which has a limit of its own.
    std::chrono::milliseconds quieta() const;
    // The connection is not made at once: has each address looked at now, and each further one when
    // it is tried. One that is made at once, or fails at once, needs no look before its end.
    void mirarSalida();
    // Of the last attempt, just failed: whether this computer had no way out to any address that
    // was tried, then or by now (a cable that is out takes the system a moment to notice).
    bool sinSalida() const;
    // Of the last attempt, when a name was not found: that name, the service's or the proxy's.
    // Empty when it is not known.
    QByteArray nombreBuscado() const;
    bool cabeceraEntera() const { return m_cabeceraEntera; }
    // Whether the headers have come to their end, and the body to the end that it tells itself.
    bool entera() const { return m_cabeceraEntera && m_cuerpo->entera(); }
    // The reply's status; 0 when none has come.
    long estado() const;
    // The other address that the reply names, as it came; nothing when it leads nowhere.
    QByteArray otroLugar() const;

private:
    static size_t alRecibirCuerpo(char *datos, size_t, size_t cuantos, void *quien);
    static size_t alRecibirCabecera(char *datos, size_t, size_t cuantos, void *quien);
    static curl_socket_t alAbrirZocalo(void *quien, curlsocktype, curl_sockaddr *direccion);
    static int alConectar(void *quien, char *, char *, int, int);
    void recibirCabecera(const QByteArray &linea);
    void leerCabecera(const QByteArray &linea);
    void terminarCabecera();
    bool recibirCuerpo(const char *datos, qsizetype cuantos);

    const BibliotecaCurl &m_curl;
    Recibir m_recibir;
    qint64 m_limiteSalto;
    QByteArray m_autoridades;
    qint64 m_salto = 0; // of it so far
    std::array<char, CURL_ERROR_SIZE> m_error = {};
    bool m_mirarSalida = false;
    int m_sinSalida = 0;           // addresses tried and seen to have no way out to them,
    QList<QByteArray> m_conSalida; // and the others
    bool m_conectada = false;
    Reloj::time_point m_ultimoByte;
    size_t m_bytesDeCabecera = 0;
    QByteArray m_lugar;
    QList<QByteArray> m_codificaciones;
    bool m_cabeceraEntera = false;
    bool m_definitiva = false;                    // it is that of the reply, and no warning's
    std::unique_ptr<DecodificacionHttp> m_cuerpo; // there when the headers are
};
