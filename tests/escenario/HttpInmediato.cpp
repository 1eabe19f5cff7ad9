// SPDX-License-Identifier: MIT
#include "escenario/HttpInmediato.h"
#include "platform/HttpClient.h"

namespace {

// HttpClient is made where a test cannot hand it anything.
HttpInmediato::Responder enUso;

std::optional<QByteArray> respuesta(const QByteArray &direccion)
{
    return enUso ? enUso(direccion) : std::nullopt;
}

} // namespace

HttpInmediato::HttpInmediato(Responder responder)
{
    enUso = std::move(responder);
}

HttpInmediato::~HttpInmediato()
{
    enUso = nullptr;
}

class HttpClient::Interno {};

HttpClient::HttpClient(const QString &) {}
HttpClient::HttpClient(const QString &, const Limites &) {}
HttpClient::~HttpClient() = default;

QString HttpClient::autoridadesDelSistema()
{
    return {};
}

std::optional<QByteArray> HttpClient::get(const QByteArray &direccion, const Cabeceras &)
{
    return respuesta(direccion);
}

bool HttpClient::getArchivo(const QByteArray &direccion, QIODevice &destino)
{
    const auto cuerpo = respuesta(direccion);
    return cuerpo && destino.write(*cuerpo) == cuerpo->size();
}
