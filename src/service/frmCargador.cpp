// SPDX-License-Identifier: MIT
#include "service/frmCargador.h"
#include "platform/codepage.h"
#include "service/archivos.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int intentosMaximos = 4;
constexpr qsizetype largoCompleto = 8; // a reply of so many bytes is taken at once
constexpr std::int16_t ticksMaximos = 90;

bool esCorta(const QByteArray &respuesta)
{
    return respuesta.size() < largoCompleto;
}

} // namespace

frmCargador::frmCargador(Entorno &entorno) : m_entorno(entorno)
{
    Timer1.setInterval(std::chrono::milliseconds(1000));
    Timer2.setInterval(std::chrono::milliseconds(10));
    connect(&Timer1, &QTimer::timeout, this, &frmCargador::Timer1_Timer);
    connect(&Timer2, &QTimer::timeout, this, &frmCargador::Timer2_Timer);
}

QString frmCargador::direccionDe(const QString &url, const QString &parametros, bool usarAzar,
                                 std::int32_t azar)
{
    if (usarAzar)
        return url + u"?azar="_s + QString::number(azar) + u'&' + parametros;
    if (parametros.size() > 2)
        return url + u'?' + parametros;
    return url;
}

bool frmCargador::pedirDeNuevo(const QByteArray &respuesta, int intento)
{
    const bool esPalabraDelServicio = respuesta == "SI" || respuesta == "NO";
    return esCorta(respuesta) && !esPalabraDelServicio && intento < intentosMaximos;
}

QString frmCargador::conectar(const QString &url, const QString &parametros, bool usarAzar)
{
    return codepage::aTexto(traer(url, parametros, usarAzar));
}

QByteArray frmCargador::traer(const QString &url, const QString &parametros, bool usarAzar)
{
    // The length is that of the empty body; a GET carries the headers of a form all the same,
    // as the service expects them.
    static const HttpClient::Cabeceras cabeceras = {
        {"Content-type", "application/x-www-form-urlencoded"},
        {"Content-length", "0"},
        {"Connection", "close"}};

    QByteArray respuesta;
    for (int intento = 1;; ++intento) {
        abrir();
        m_entorno.azar.sembrar();
        const QString direccion = direccionDe(url, parametros, usarAzar, m_entorno.azar.numero());
        ceder();
        auto cuerpo = m_entorno.http.get(codepage::aBytes(direccion), cabeceras);
        ceder();
        if (cuerpo)
            respuesta = *std::move(cuerpo);
        if (esCorta(respuesta))
            m_ticks = 0;
        if (!pedirDeNuevo(respuesta, intento))
            break;
    }
    cerrar();
    return respuesta;
}

void frmCargador::abrir()
{
    Timer1.start();
    Timer2.start();
}

void frmCargador::cerrar()
{
    Timer1.stop();
    Timer2.stop();
}

// Only tidies a loader that is left open; a request in flight belongs to its call and goes on.
void frmCargador::Timer1_Timer()
{
    if (++m_ticks > ticksMaximos)
        cerrar();
}

void frmCargador::Timer2_Timer()
{
    ceder();
}
