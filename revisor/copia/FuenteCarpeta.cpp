// SPDX-License-Identifier: MIT
#include "fuentes.h"
#include "inventario.h"
#include "platform/recorrido.h"

#include <array>
#include <fstream>
#include <limits>

using namespace Qt::StringLiterals;

namespace copia {

namespace {

class FuenteCarpeta : public Fuente {
public:
    FuenteCarpeta(const std::filesystem::path &carpeta, const std::stop_token &parar)
    {
        const Inventario inventario = inventariar(carpeta, parar);
        if (!inventario.fallo.isEmpty())
            noSeLee(inventario.fallo);
        for (const Pieza &pieza : inventario.piezas) {
            if (pieza.esCarpeta)
                continue;
            m_entradas.push_back({.nombre = pieza.nombre, .bytes = pieza.bytes});
            m_rutas.push_back(pieza.ruta);
        }
        for (const Omitido &omitido : inventario.omitidos)
            m_extranas.push_back(omitido.nombre.toUtf8());
    }

    const std::vector<Entrada> &entradas() const override { return m_entradas; }
    std::vector<QByteArray> extranas() const override { return m_extranas; }
    qint64 tope() const override { return std::numeric_limits<qint64>::max(); }
    QString rechazo() const override { return m_rechazo; }
    QString reparo() const override { return {}; }

    Lectura leer(std::size_t indice, const Recibir &recibir) override
    {
        std::ifstream archivo(recorrido::paraAbrir(m_rutas.at(indice)), std::ios::binary);
        if (!archivo)
            return noSeLee(paraMostrar(m_rutas.at(indice)));
        while (archivo) {
            archivo.read(m_bloque.data(), static_cast<std::streamsize>(m_bloque.size()));
            if (archivo.bad())
                return noSeLee(paraMostrar(m_rutas.at(indice)));
            if (!recibir({m_bloque.data(), static_cast<std::size_t>(archivo.gcount())}))
                return Lectura::Interrumpida;
        }
        return Lectura::Entera;
    }

private:
    // Not the same as changed: nobody has seen the bytes.
    Lectura noSeLee(const QString &nombre)
    {
        m_rechazo = u"No se puede leer: "_s + nombre;
        return Lectura::Rota;
    }

    std::vector<Entrada> m_entradas;
    std::vector<std::filesystem::path> m_rutas;
    std::vector<QByteArray> m_extranas;
    std::array<char, 65536> m_bloque = {};
    QString m_rechazo;
};

} // namespace

std::unique_ptr<Fuente> fuenteCarpeta(const std::filesystem::path &carpeta,
                                      const std::stop_token &parar)
{
    return std::make_unique<FuenteCarpeta>(carpeta, parar);
}

} // namespace copia
