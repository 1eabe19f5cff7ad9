// SPDX-License-Identifier: MIT
#include "inventario.h"

#include "platform/nombresNativos.h"
#include "platform/recorrido.h"

#include <QDir>

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace copia {

namespace {

using recorrido::Entrada;

bool esOtraEscritura(const fs::path &enlace)
{
    std::error_code error;
    const fs::path destino = fs::read_symlink(enlace, error);
    // Compared as text: of names that are none, both are shown alike, and the copy is refused
    // for the neighbour's sake anyway.
    return !error
           && nombresNativos::esOtraEscritura(paraMostrar(enlace.filename()), paraMostrar(destino));
}

class Recorrido {
public:
    Recorrido(Inventario &inventario, const std::stop_token &parar)
        : m_inventario(inventario), m_parar(parar)
    {
    }

    void desde(const fs::path &raiz)
    {
        m_pendientes.push_back({.ruta = raiz, .nombre = {}});
        while (!m_pendientes.empty() && m_inventario.fallo.isEmpty() && !m_inventario.detenido) {
            const Carpeta carpeta = m_pendientes.back();
            m_pendientes.pop_back();
            leer(carpeta);
        }
    }

private:
    struct Carpeta {
        fs::path ruta;
        QByteArray nombre; // with a "/" at its end, but for the root
    };

    void leer(const Carpeta &carpeta)
    {
        const bool entera = recorrido::porCarpeta(carpeta.ruta, [&](const Entrada &una) {
            m_inventario.detenido = m_parar.stop_requested();
            if (!m_inventario.detenido)
                anotar(una, carpeta.ruta / una.nombre, carpeta.nombre + enBytes(una.nombre));
            return !m_inventario.detenido && m_inventario.fallo.isEmpty();
        });
        if (!entera)
            m_inventario.fallo = paraMostrar(carpeta.ruta);
    }

    void anotar(const Entrada &una, const fs::path &ruta, const QByteArray &nombre)
    {
        switch (una.clase) {
        case recorrido::Clase::Enlace:
            if (!esOtraEscritura(ruta))
                omitir(nombre, Omitido::Motivo::Enlace);
            return;
        case recorrido::Clase::Carpeta:
            m_pendientes.push_back({.ruta = ruta, .nombre = nombre + '/'});
            agregar(una, ruta, nombre);
            return;
        case recorrido::Clase::Archivo:
            if (enBytes(una.nombre).startsWith(".descarga-"))
                omitir(nombre, Omitido::Motivo::Resto);
            else
                agregar(una, ruta, nombre);
            return;
        case recorrido::Clase::Otra:
            if (una.cierta)
                omitir(nombre, Omitido::Motivo::Especial);
            else
                m_inventario.fallo = paraMostrar(ruta);
        }
    }

    void agregar(const Entrada &una, const fs::path &ruta, const QByteArray &nombre)
    {
        if (una.cierta)
            m_inventario.piezas.push_back({.nombre = nombre,
                                           .ruta = ruta,
                                           .esCarpeta = una.clase == recorrido::Clase::Carpeta,
                                           .bytes = una.bytes,
                                           .escrito = una.escrito});
        else
            m_inventario.fallo = paraMostrar(ruta);
    }

    void omitir(const QByteArray &nombre, Omitido::Motivo motivo)
    {
        m_inventario.omitidos.append({.nombre = QString::fromUtf8(nombre), .motivo = motivo});
    }

    Inventario &m_inventario;
    const std::stop_token &m_parar;
    std::vector<Carpeta> m_pendientes;
};

} // namespace

Inventario inventariar(const fs::path &raiz, const std::stop_token &parar)
{
    Inventario inventario;
    Recorrido(inventario, parar).desde(raiz);
    std::sort(inventario.piezas.begin(), inventario.piezas.end(),
              [](const Pieza &una, const Pieza &otra) { return una.nombre < otra.nombre; });
    std::sort(inventario.omitidos.begin(), inventario.omitidos.end(),
              [](const Omitido &uno, const Omitido &otro) { return uno.nombre < otro.nombre; });
    return inventario;
}

QByteArray enBytes(const fs::path &ruta)
{
    const std::u8string nombre = ruta.generic_u8string();
    return {reinterpret_cast<const char *>(nombre.data()), static_cast<qsizetype>(nombre.size())};
}

QString paraMostrar(const fs::path &ruta)
{
    return QDir::toNativeSeparators(QString::fromUtf8(enBytes(ruta)));
}

} // namespace copia
