// SPDX-License-Identifier: MIT
// The demonstration school as a running service, on loopback, for parvanel-demo and for the
// tests. It answers every address that the program asks for, records each request to the byte
// and in order of arrival, and misbehaves on demand.
//
// Threads: the constructor starts the listeners, the destructor stops and joins them. Every
// operation may be called from any thread. A QGuiApplication must exist (labels are drawn
// with its fonts).
#pragma once

#include "demostracion/Escuela.h"

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>

#include <chrono>
#include <memory>

// A request as it came over the wire.
struct Peticion {
    QByteArray bytes;   // request line and headers, up to and with the empty line
    QByteArray metodo;  // "GET"
    QByteArray destino; // the request target, undecoded: "/querys/tessarin/login.php?azar=1&user=a"
    QList<QPair<QByteArray, QByteArray>> cabeceras; // in order, spelled as they came
};

// What the service does instead of its ordinary answer.
struct Falla {
    enum Clase {
        Demora,        // waits for `demora`, then answers as usual
        Muda,          // accepts and reads, never answers (until the service is destroyed)
        Retenida,      // waits until quitarFallas is called, then answers as usual
        Vacia,         // 200 with an empty body
        Cuerpo,        // 200 with `cuerpo` as its body (short replies, garbage text, fixed pages)
        Estado,        // status `estado` with `cuerpo` as its body
        CierraAntes,   // closes the connection without a byte of reply
        CierraEnMedio, // announces the ordinary body's whole length, sends half of it, closes
        LargoErrado,   // announces half of the ordinary body's length and sends all of it
        Basura,        // sends bytes that are no HTTP reply, then closes
        Redireccion    // status `estado` (302 unless set) with `cuerpo` as its Location
    };
    Clase clase = Vacia;
    QByteArray cuerpo = {};
    int estado = 0;
    std::chrono::milliseconds demora{0};
};

class ServicioDemo {
public:
    enum class Modo { Http, Https, HttpsVencido, HttpsPorVenir };

    // Https uses a certificate for 127.0.0.1 and localhost made at start by a certificate
    // authority of its own; see autoridad(). HttpsVencido is the same with a certificate that has
    // expired, HttpsPorVenir with one that is not good yet.
    explicit ServicioDemo(const TamanoEscuela &tamano = {}, Modo modo = Modo::Http);
    ~ServicioDemo();
    ServicioDemo(const ServicioDemo &) = delete;
    ServicioDemo &operator=(const ServicioDemo &) = delete;

    // Scheme, host and port without a trailing slash: "http://127.0.0.1:40123".
    QString base() const;
    // The certificate authority in PEM (not for Http: empty).
    QByteArray autoridad() const;
    const Escuela &escuela() const;

    // All requests so far, in order of arrival. For Https the bytes are those after decryption.
    QList<Peticion> peticiones() const;
    void olvidarPeticiones();

    // From now on, every request whose undecoded target contains `fragmento` meets `falla`, the
    // first `veces` times (-1: always). The rule given last is tried first; a rule that is used
    // up is passed over. quitarFallas removes all rules.
    void fallar(const QByteArray &fragmento, const Falla &falla, int veces = -1);
    void quitarFallas();

private:
    class Interno;
    std::unique_ptr<Interno> d;
};
