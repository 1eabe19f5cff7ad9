// SPDX-License-Identifier: MIT
#include "inventario.h"

#include "platform/enlaces.h"
#include "platform/nombresNativos.h"

#include <QDir>

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace copia {

namespace {

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
        std::error_code error;
        fs::directory_iterator entrada(carpeta.ruta, error);
        for (; !error && entrada != fs::directory_iterator() && m_inventario.fallo.isEmpty();
             entrada.increment(error)) {
            m_inventario.detenido = m_parar.stop_requested();
            if (m_inventario.detenido)
                return;
            anotar(*entrada, carpeta.nombre + enBytes(entrada->path().filename()));
        }
        if (error)
            m_inventario.fallo = paraMostrar(carpeta.ruta);
    }

    void anotar(const fs::directory_entry &entrada, const QByteArray &nombre)
    {
        std::error_code error;
        const fs::file_status estado = entrada.symlink_status(error);
        if (error) {
            m_inventario.fallo = paraMostrar(entrada.path());
        } else if (fs::is_symlink(estado) || enlaces::esEnlace(entrada)) {
            if (!esOtraEscritura(entrada.path()))
                omitir(nombre, Omitido::Motivo::Enlace);
        } else if (fs::is_directory(estado)) {
            m_pendientes.push_back({.ruta = entrada.path(), .nombre = nombre + '/'});
            agregar(entrada, nombre, 0);
        } else if (!fs::is_regular_file(estado)) {
            omitir(nombre, Omitido::Motivo::Especial);
        } else if (enBytes(entrada.path().filename()).startsWith(".descarga-")) {
            omitir(nombre, Omitido::Motivo::Resto);
        } else {
            agregar(entrada, nombre, -1);
        }
    }

    // `bytes` below 0: as many as the file has.
    void agregar(const fs::directory_entry &entrada, const QByteArray &nombre, qint64 bytes)
    {
        std::error_code error;
        Pieza pieza = {.nombre = nombre,
                       .ruta = entrada.path(),
                       .esCarpeta = bytes == 0,
                       .bytes = bytes,
                       .escrito = fs::last_write_time(entrada.path(), error)};
        if (!error && bytes < 0)
            pieza.bytes = static_cast<qint64>(fs::file_size(entrada.path(), error));
        if (error)
            m_inventario.fallo = paraMostrar(entrada.path());
        else
            m_inventario.piezas.push_back(std::move(pieza));
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
