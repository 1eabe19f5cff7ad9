// SPDX-License-Identifier: MIT
#include "demostracion/mensajes.h"

#include <zlib.h>

#include <new>

namespace {

QByteArray frase(int estado)
{
    switch (estado) {
    case 200:
        return "OK";
    case 301:
        return "Moved Permanently";
    case 302:
        return "Found";
    case 303:
        return "See Other";
    case 307:
        return "Temporary Redirect";
    case 400:
        return "Bad Request";
    case 403:
        return "Forbidden";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 500:
        return "Internal Server Error";
    case 503:
        return "Service Unavailable";
    default:
        return "Estado";
    }
}

bool esTexto(const QByteArray &tipo)
{
    return tipo.startsWith("text/") || tipo == "application/javascript";
}

QByteArray comprimido(QByteArray cuerpo)
{
    constexpr int conCabeceraGzip = 16;
    z_stream corriente{};
    if (deflateInit2(&corriente, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + conCabeceraGzip, 8,
                     Z_DEFAULT_STRATEGY)
        != Z_OK)
        throw std::bad_alloc();
    const auto largo = static_cast<uLong>(cuerpo.size());
    QByteArray bytes(static_cast<qsizetype>(deflateBound(&corriente, largo)), Qt::Uninitialized);
    corriente.next_in = reinterpret_cast<Bytef *>(cuerpo.data());
    corriente.avail_in = static_cast<uInt>(largo);
    corriente.next_out = reinterpret_cast<Bytef *>(bytes.data());
    corriente.avail_out = static_cast<uInt>(bytes.size());
    // One call is enough: the bound leaves room for all.
    [[maybe_unused]] const int hecho = deflate(&corriente, Z_FINISH);
    bytes.truncate(static_cast<qsizetype>(corriente.total_out));
    deflateEnd(&corriente);
    return bytes;
}

} // namespace

namespace demo {

Peticion leida(const QByteArray &bytes)
{
    Peticion peticion;
    peticion.bytes = bytes;
    const QList<QByteArray> lineas = bytes.left(bytes.size() - 4).split('\n');
    for (qsizetype i = 1; i < lineas.size(); ++i) {
        const QByteArray linea =
            lineas.at(i).endsWith('\r') ? lineas.at(i).chopped(1) : lineas.at(i);
        const qsizetype dosPuntos = linea.indexOf(':');
        peticion.cabeceras.append(
            {linea.left(dosPuntos),
             dosPuntos < 0 ? QByteArray() : linea.mid(dosPuntos + 1).trimmed()});
    }
    // A target is what stands between the first and the last blank: one with a blank in it,
    // which no client ought to send, is recorded whole.
    const QByteArray primera = lineas.at(0).trimmed();
    const qsizetype a = primera.indexOf(' ');
    const qsizetype z = primera.lastIndexOf(' ');
    peticion.metodo = primera.left(a);
    if (a >= 0 && z > a)
        peticion.destino = primera.mid(a + 1, z - a - 1);
    return peticion;
}

QByteArray valor(const Peticion &peticion, const QByteArray &nombre)
{
    for (const auto &[clave, contenido] : peticion.cabeceras)
        if (clave.compare(nombre, Qt::CaseInsensitive) == 0)
            return contenido;
    return {};
}

QByteArray enMensaje(const Respuesta &respuesta, const QByteArray &metodo, const QByteArray &acepta)
{
    const bool comprimir =
        acepta.contains("gzip") && esTexto(respuesta.tipo) && !respuesta.cuerpo.isEmpty();
    const QByteArray cuerpo = comprimir ? comprimido(respuesta.cuerpo) : respuesta.cuerpo;
    return "HTTP/1.1 " + QByteArray::number(respuesta.estado) + ' ' + frase(respuesta.estado)
           + "\r\nConnection: close\r\n" + (comprimir ? "Content-Encoding: gzip\r\n" : "")
           + "Content-Length: " + QByteArray::number(cuerpo.size()) + "\r\nContent-Type: "
           + respuesta.tipo + "\r\n\r\n" + (metodo == "HEAD" ? QByteArray() : cuerpo);
}

QByteArray respuesta(int estado, const QByteArray &cuerpo, const QByteArray &mas)
{
    return "HTTP/1.1 " + QByteArray::number(estado) + ' ' + frase(estado) + "\r\n" + mas
           + "Content-Type: text/html; charset=windows-1252\r\nContent-Length: "
           + QByteArray::number(cuerpo.size()) + "\r\nConnection: close\r\n\r\n" + cuerpo;
}

Partes separar(const QByteArray &respuesta)
{
    const qsizetype fin = respuesta.indexOf("\r\n\r\n");
    Partes partes;
    for (const QByteArray &linea : respuesta.left(fin).split('\n'))
        if (!linea.toLower().startsWith("content-length:"))
            partes.cabecera += linea.trimmed() + "\r\n";
    partes.cuerpo = respuesta.mid(fin + 4);
    return partes;
}

QByteArray conLargo(const Partes &partes, qsizetype largo, const QByteArray &cuerpo)
{
    return partes.cabecera + "Content-Length: " + QByteArray::number(largo) + "\r\n\r\n" + cuerpo;
}

QByteArray basura()
{
    static constexpr char bytes[] =
        "\x07\x00\xFF\xFE esto no es HTTP \x16\x03\x01\x80\r\n\r\n\xC1\xD1 ruido\r\n";
    return {bytes, sizeof bytes - 1};
}

} // namespace demo
