// SPDX-License-Identifier: MIT
#include "platform/direccionHttp.h"
#include "BibliotecaCurl.h"

#include <QList>

#include <algorithm>
#include <memory>
#include <string_view>

namespace direccionHttp {
namespace {

// Whether a byte cannot stand in a request target.
bool esImposible(char byte)
{
    constexpr std::string_view imposibles("\"#<>\\^`{|}");
    const auto valor = static_cast<unsigned char>(byte);
    return valor <= 0x20 || valor >= 0x7F || imposibles.find(byte) != imposibles.npos;
}

} // namespace

bool esRedireccion(long estado)
{
    return estado == 301 || estado == 302 || estado == 303 || estado == 307 || estado == 308;
}

Partes separar(const QByteArray &direccion)
{
    const qsizetype autoridad = direccion.indexOf("://");
    qsizetype corte = autoridad < 0 ? 0 : autoridad + 3;
    while (corte < direccion.size() && direccion[corte] != '/' && direccion[corte] != '?')
        ++corte;
    QByteArray destino = direccion.mid(corte);
    if (!destino.startsWith('/'))
        destino.prepend('/');
    return {direccion.left(corte), destinoEnLinea(destino)};
}

bool esSegura(const QByteArray &direccion)
{
    return direccion.left(6).toLower() == "https:";
}

// Escaped before the library reads it, which would write some bytes in another way ("+" for a
// blank). The address that it tells by itself after a reply (CURLINFO_REDIRECT_URL) is of no use
// for the same reason, and because one that cannot be read is given there as it came.
std::optional<QByteArray> direccionDe(const QByteArray &lugar, const QByteArray &desde)
{
    const auto curl = BibliotecaCurl::traer();
    if (!curl)
        return std::nullopt;
    const QByteArray escrito = destinoEnLinea(lugar.split('#').first());
    const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> partes(curl->url(),
                                                                     curl->url_cleanup);
    char *entera = nullptr;
    if (!partes || curl->url_set(partes.get(), CURLUPART_URL, desde.constData(), 0) != CURLUE_OK
        || curl->url_set(partes.get(), CURLUPART_URL, escrito.constData(), 0) != CURLUE_OK
        || curl->url_get(partes.get(), CURLUPART_URL, &entera, 0) != CURLUE_OK)
        return std::nullopt;
    const QByteArray direccion(entera);
    curl->free(entera);
    if (!esSegura(direccion) && direccion.left(5).toLower() != "http:")
        return std::nullopt;
    return direccion;
}

// Asked at every request: most targets have no such byte and go out as they are.
QByteArray destinoEnLinea(const QByteArray &destino)
{
    if (std::none_of(destino.begin(), destino.end(), esImposible))
        return destino;
    QByteArray enLinea;
    for (const char byte : destino) {
        if (esImposible(byte))
            enLinea += '%' + QByteArray(1, byte).toHex().toUpper();
        else
            enLinea += byte;
    }
    return enLinea;
}

} // namespace direccionHttp
