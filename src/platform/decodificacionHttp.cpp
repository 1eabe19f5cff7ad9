// SPDX-License-Identifier: MIT
#include "decodificacionHttp.h"

#include <array>
#include <utility>

#define ZLIB_CONST
#include <zlib.h>

// One encoding taken off.
class DecodificacionHttp::Etapa {
public:
    Etapa() = default;
    virtual ~Etapa() = default;
    Etapa(const Etapa &) = delete;
    Etapa &operator=(const Etapa &) = delete;

    virtual bool pasar(const char *datos, qsizetype cuantos) = 0;
    virtual bool entera() const = 0;
};

namespace {

using Recibir = DecodificacionHttp::Recibir;

// Nobody sends so many in earnest.
constexpr qsizetype etapasMaximas = 5;

// What all stages may make of one piece of the body as it came, of 16 KiB at the most. A single
// stage makes 17 MiB of that when it is nothing but repetition; more comes of encodings within one
// another, a few hundred bytes of which would keep the window from its events for minutes.
constexpr qsizetype salidaMaxima = qsizetype(32) * 1024 * 1024;

// A bare stream is recognised by its beginning; this much of it is kept for the second attempt.
constexpr qsizetype principioMaximo = qsizetype(64) * 1024;

// After a bare stream some senders put a check sum that does not belong there.
constexpr qsizetype colaTolerada = 4;

// An encoding that was not asked for: not a byte of it can be read.
class Desconocida : public DecodificacionHttp::Etapa {
    bool pasar(const char *, qsizetype cuantos) override { return cuantos == 0; }
    bool entera() const override { return true; }
};

class Comprimida : public DecodificacionHttp::Etapa {
public:
    // The bits of the window say to zlib which envelopes it may find.
    enum Envoltura { Gzip = MAX_WBITS + 32, Deflate = MAX_WBITS };

    // `salida`: what all stages have made of the piece at hand; borrowed.
    Comprimida(Envoltura envoltura, const Recibir &recibir, qsizetype &salida)
        : m_recibir(recibir), m_salida(salida), m_desnuda(envoltura == Deflate),
          m_lista(inflateInit2(&m_flujo, envoltura) == Z_OK)
    {
    }
    ~Comprimida() override { inflateEnd(&m_flujo); }

    bool pasar(const char *datos, qsizetype cuantos) override
    {
        if (cuantos == 0)
            return true;
        m_empezada = true;
        if (m_terminada)
            return tolerarCola(cuantos);
        if (m_desnuda)
            m_principio.append(datos, cuantos);
        if (m_principio.size() > principioMaximo)
            decidirse();
        return m_lista && inflar(datos, cuantos);
    }

    bool entera() const override { return !m_empezada || m_terminada; }

private:
    bool inflar(const char *datos, qsizetype cuantos)
    {
        std::array<char, std::size_t(32) * 1024> salida; // NOLINT(*-member-init): only written to
        m_flujo.next_in = reinterpret_cast<const Bytef *>(datos);
        m_flujo.avail_in = static_cast<uInt>(cuantos);
        for (;;) {
            m_flujo.next_out = reinterpret_cast<Bytef *>(salida.data());
            m_flujo.avail_out = static_cast<uInt>(salida.size());
            const int estado = inflate(&m_flujo, Z_BLOCK);
            const auto producidos = static_cast<qsizetype>(salida.size() - m_flujo.avail_out);
            if (estado == Z_BUF_ERROR) // all that there is has been read
                return true;
            if (estado == Z_DATA_ERROR && m_desnuda)
                return inflarDesnuda();
            if (estado != Z_OK && estado != Z_STREAM_END)
                return false;
            if (producidos > 0) {
                decidirse();
                m_salida += producidos;
                if (m_salida > salidaMaxima || !m_recibir(salida.data(), producidos))
                    return false;
            }
            if (estado == Z_STREAM_END) {
                m_terminada = true;
                return tolerarCola(static_cast<qsizetype>(m_flujo.avail_in));
            }
        }
    }

    // No envelope, then: once more from the beginning.
    bool inflarDesnuda()
    {
        const QByteArray principio = std::exchange(m_principio, {});
        m_desnuda = false;
        m_cola = colaTolerada;
        return inflateReset2(&m_flujo, -MAX_WBITS) == Z_OK
               && inflar(principio.constData(), principio.size());
    }

    void decidirse()
    {
        m_desnuda = false;
        m_principio.clear();
    }

    bool tolerarCola(qsizetype cuantos)
    {
        m_cola -= cuantos;
        return m_cola >= 0;
    }

    Recibir m_recibir;
    qsizetype &m_salida;
    z_stream m_flujo = {};
    bool m_desnuda; // the envelope may be missing
    QByteArray m_principio;
    qsizetype m_cola = 0; // bytes after the end that may still come
    bool m_lista;
    bool m_empezada = false;
    bool m_terminada = false;
};

std::unique_ptr<DecodificacionHttp::Etapa> etapa(const QByteArray &codificacion,
                                                 const Recibir &recibir, qsizetype &salida)
{
    const QByteArray nombre = codificacion.toLower();
    if (nombre == "gzip" || nombre == "x-gzip")
        return std::make_unique<Comprimida>(Comprimida::Gzip, recibir, salida);
    if (nombre == "deflate")
        return std::make_unique<Comprimida>(Comprimida::Deflate, recibir, salida);
    return std::make_unique<Desconocida>();
}

bool sinEfecto(const QByteArray &codificacion)
{
    const QByteArray nombre = codificacion.toLower();
    return nombre == "identity" || nombre == "none";
}

} // namespace

// The encoding applied first is taken off last: each stage hands on to the one made before it.
DecodificacionHttp::DecodificacionHttp(const QList<QByteArray> &codificaciones,
                                       const Recibir &recibir)
    : m_entrada(recibir)
{
    const bool demasiadas = codificaciones.size() > etapasMaximas;
    for (const QByteArray &codificacion : codificaciones) {
        if (sinEfecto(codificacion) && !demasiadas)
            continue;
        m_etapas.push_back(demasiadas ? std::make_unique<Desconocida>()
                                      : etapa(codificacion, m_entrada, m_salida));
        m_entrada = [una = m_etapas.back().get()](const char *datos, qsizetype cuantos) {
            return una->pasar(datos, cuantos);
        };
    }
}

DecodificacionHttp::~DecodificacionHttp() = default;

bool DecodificacionHttp::pasar(const char *datos, qsizetype cuantos)
{
    m_salida = 0;
    return m_entrada(datos, cuantos);
}

bool DecodificacionHttp::entera() const
{
    for (const auto &una : m_etapas) {
        if (!una->entera())
            return false;
    }
    return true;
}
