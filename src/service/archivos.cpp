// SPDX-License-Identifier: MIT
#include "service/archivos.h"
#include "platform/codepage.h"
#include "service/limpieza.h"

#include <QBuffer>
#include <QCoreApplication>

namespace {

constexpr auto pausaTrasDescarga = std::chrono::milliseconds(500);
constexpr qint64 largoMinimo = 8; // a file must be longer than this many bytes

} // namespace

void ceder()
{
    QCoreApplication::processEvents();
}

void crearCarpeta(Entorno &entorno, const QString &ruta)
{
    // An existing folder is the usual case, and a missing parent shows in every file after it.
    [[maybe_unused]] const bool hecha = entorno.disco.crearCarpeta(sinSaltos(ruta));
}

void escribirTexto(Entorno &entorno, const QString &texto, const QString &archivo, bool borrar)
{
    escribirBytes(entorno, codepage::aBytes(texto), archivo, borrar);
}

void escribirBytes(Entorno &entorno, QByteArray bytes, const QString &archivo, bool borrar)
{
    if (borrar) {
        // There is none to delete on a first run.
        [[maybe_unused]] const bool borrado = entorno.disco.borrar(archivo);
    }
    ceder();
    bytes += "\r\n";
    // A file that cannot be written is passed over: the rest of the archive still counts.
    [[maybe_unused]] const bool escrito =
        borrar ? entorno.disco.escribir(archivo, bytes) : entorno.disco.agregar(archivo, bytes);
}

bool descargarArchivo(Entorno &entorno, const QString &url, const QString &archivo)
{
    ceder();
    [[maybe_unused]] const bool borrado = entorno.disco.borrar(archivo);

    const auto entrante = entorno.disco.recibir(sinSaltos(archivo));
    // The request goes out whatever the disk says; what cannot be stored is let go.
    QBuffer sinDestino;
    [[maybe_unused]] const bool abierto = sinDestino.open(QIODevice::WriteOnly); // memory opens
    QIODevice &destino = entrante ? entrante->dispositivo() : sinDestino;
    if (entorno.http.getArchivo(codepage::aBytes(url), destino) && entrante) {
        [[maybe_unused]] const bool guardado = entrante->publicar();
    }

    entorno.pausa(pausaTrasDescarga);
    return entorno.disco.largo(archivo).value_or(0) > largoMinimo;
}
