// SPDX-License-Identifier: MIT
#include "EscritorZip.h"
#include "bolsa.h"
#include "inventario.h"
#include "platform/recorrido.h"
#include "revisor/copia.h"

#include <QCryptographicHash>
#include <QSaveFile>
#include <QStorageInfo>
#include <QStringConverter>

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace copia {

namespace {

using Final = Guardada::Final;

// Whether the file would stand in the folder, whatever links or spellings lead there.
bool quedaDentro(const fs::path &archivo, const fs::path &carpeta)
{
    std::error_code error;
    fs::path madre = fs::weakly_canonical(fs::absolute(archivo, error), error).parent_path();
    for (; !madre.empty(); madre = madre.parent_path()) {
        if (fs::equivalent(madre, carpeta, error))
            return true;
        if (madre == madre.parent_path())
            break;
    }
    return false;
}

std::optional<QString> sinCopiar(const Inventario &inventario)
{
    if (!inventario.fallo.isEmpty())
        return u"No se puede leer: "_s + inventario.fallo;
    bool hayArchivos = false;
    for (const Pieza &pieza : inventario.piezas) {
        hayArchivos = hayArchivos || !pieza.esCarpeta;
        if (!QUtf8StringView(pieza.nombre).isValidUtf8() || pieza.nombre.contains('\\'))
            return u"Cambie este nombre, que no sirve en todos los computadores: "_s
                   + paraMostrar(pieza.ruta);
    }
    return hayArchivos ? std::nullopt : std::optional(u"La carpeta no tiene documentos."_s);
}

// The bag's own folder in the ZIP has the ZIP's name, as it will be unpacked.
QByteArray carpetaDe(const fs::path &destino)
{
    const QByteArray nombre = enBytes(destino.stem());
    const bool sirve = QUtf8StringView(nombre).isValidUtf8() && bolsa::esSegura(nombre);
    return (sirve ? nombre : QByteArray("copia")) + '/';
}

class Copiado {
public:
    Copiado(const Encargo &encargo, const Inventario &inventario, const Avance &avance,
            const std::stop_token &parar)
        : m_encargo(encargo), m_inventario(inventario), m_avance(avance), m_parar(parar),
          m_base(carpetaDe(encargo.destino)),
          m_tope(fs::file_time_type::clock::from_sys(
              std::chrono::sys_seconds(std::chrono::seconds(encargo.cuando.toSecsSinceEpoch())))),
          m_salida(paraMostrar(encargo.destino))
    {
        for (const Pieza &pieza : inventario.piezas) {
            m_total += pieza.bytes;
            m_archivos += pieza.esCarpeta ? 0 : 1;
        }
    }

    Guardada hacer()
    {
        if (m_salida.open(QIODevice::WriteOnly)) {
            EscritorZip zip(m_salida);
            if (llenar(zip) && (zip.cerrar() || noSeEscribe()) && sinCambios())
                publicar();
        } else {
            noSeEscribe();
        }
        return {.final = m_final,
                .texto = m_texto,
                .omitidos = m_inventario.omitidos,
                .archivos = m_archivos,
                .bytes = m_total};
    }

private:
    // These end the copying, and are false so that whoever calls them can end as well.
    bool terminar(Final final, const QString &texto)
    {
        m_final = final;
        m_texto = texto;
        return false;
    }

    bool cambio(const fs::path &ruta)
    {
        return terminar(Final::Fallo,
                        u"No se guardó la copia, porque cambió mientras se copiaba: "_s
                            + paraMostrar(ruta) + u". Espere a que termine la descarga."_s);
    }

    bool noSeEscribe()
    {
        // The system's word for it is in another language; how much room is left says it as well.
        constexpr qint64 casiNada = 1 << 20;
        const QStorageInfo disco(paraMostrar(m_encargo.destino.parent_path()));
        const bool lleno = m_salida.error() == QFileDevice::ResourceError
                           || (disco.isValid() && disco.bytesAvailable() < casiNada);
        return terminar(
            Final::Fallo,
            lleno ? u"No se guardó la copia: el disco está lleno."_s
                  : u"No se guardó la copia: no se puede escribir %1. Puede que el disco no "
                    u"admita un archivo tan grande, esté protegido o se haya retirado."_s.arg(
                        paraMostrar(m_encargo.destino)));
    }

    bool llenar(EscritorZip &zip)
    {
        const QByteArray historico = enBytes(m_encargo.carpeta.filename());
        return propio(zip, bolsa::declaracion, bolsa::textoDeclaracion())
               && propio(zip, bolsa::leame, bolsa::textoLeame(historico))
               && std::all_of(m_inventario.piezas.begin(), m_inventario.piezas.end(),
                              [&](const Pieza &pieza) { return copiar(zip, pieza); })
               && propio(zip, bolsa::datos,
                         bolsa::textoDatos({.historico = historico,
                                            .programa = m_encargo.programa.toUtf8(),
                                            .fecha = m_encargo.cuando.date(),
                                            .bytes = m_total,
                                            .archivos = m_archivos}))
               && propio(zip, bolsa::manifiesto, bolsa::escribir(m_sumas))
               && propio(zip, bolsa::manifiestoPropio, bolsa::escribir(m_propias));
    }

    // A file of the bag's own.
    bool propio(EscritorZip &zip, const QByteArray &nombre, const QByteArray &texto)
    {
        m_propias.emplace(nombre, QCryptographicHash::hash(texto, QCryptographicHash::Sha256));
        return (zip.archivo(m_base + nombre, texto.size(), m_tope) && zip.agregar(texto)
                && zip.terminarArchivo())
               || noSeEscribe();
    }

    bool copiar(EscritorZip &zip, const Pieza &pieza)
    {
        const QByteArray nombre = bolsa::carga + pieza.nombre;
        if (pieza.esCarpeta)
            return zip.carpeta(m_base + nombre, pieza.escrito) || noSeEscribe();
        std::ifstream archivo(recorrido::paraAbrir(pieza.ruta), std::ios::binary);
        if (!archivo)
            return terminar(Final::Fallo, u"No se puede leer: "_s + paraMostrar(pieza.ruta));
        if (!zip.archivo(m_base + nombre, pieza.bytes, pieza.escrito))
            return noSeEscribe();
        QCryptographicHash suma(QCryptographicHash::Sha256);
        if (!pasar(zip, pieza, archivo, suma))
            return false;
        m_sumas.emplace(nombre, suma.result());
        return zip.terminarArchivo() || noSeEscribe();
    }

    bool pasar(EscritorZip &zip, const Pieza &pieza, std::ifstream &archivo,
               QCryptographicHash &suma)
    {
        qint64 leidos = 0;
        while (archivo) {
            archivo.read(m_bloque.data(), static_cast<std::streamsize>(m_bloque.size()));
            const std::span<const char> bytes(m_bloque.data(),
                                              static_cast<std::size_t>(archivo.gcount()));
            leidos += archivo.gcount();
            if (archivo.bad())
                return terminar(Final::Fallo, u"No se puede leer: "_s + paraMostrar(pieza.ruta));
            if (leidos > pieza.bytes)
                return cambio(pieza.ruta);
            suma.addData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
            if (!zip.agregar(bytes))
                return noSeEscribe();
            m_hechos += archivo.gcount();
            if (m_avance)
                m_avance(m_hechos, m_total);
            if (m_parar.stop_requested())
                return terminar(Final::Detenida, u"Se detuvo: no se guardó la copia."_s);
        }
        return leidos == pieza.bytes || cambio(pieza.ruta);
    }

    // The folder once more: what has become another meanwhile, after it was copied too.
    bool sinCambios()
    {
        const Inventario ahora = inventariar(m_encargo.carpeta, m_parar);
        if (ahora.detenido)
            return terminar(Final::Detenida, u"Se detuvo: no se guardó la copia."_s);
        const auto [antes, despues] =
            std::mismatch(m_inventario.piezas.begin(), m_inventario.piezas.end(),
                          ahora.piezas.begin(), ahora.piezas.end());
        if (antes != m_inventario.piezas.end())
            return cambio(antes->ruta);
        if (despues != ahora.piezas.end())
            return cambio(despues->ruta);
        return (ahora.omitidos == m_inventario.omitidos && ahora.fallo.isEmpty())
               || cambio(m_encargo.carpeta);
    }

    void publicar()
    {
        // Asked once more: another copy may have been written meanwhile.
        std::error_code error;
        if (!m_encargo.reemplazar && fs::exists(fs::symlink_status(m_encargo.destino, error))) {
            terminar(Final::YaExiste,
                     u"No se guardó la copia: ya existe "_s + paraMostrar(m_encargo.destino));
            return;
        }
        if (!m_salida.commit()) {
            noSeEscribe();
            return;
        }
        terminar(Final::Hecha, u"Copia guardada: "_s + paraMostrar(m_encargo.destino));
    }

    const Encargo &m_encargo;
    const Inventario &m_inventario;
    const Avance &m_avance;
    const std::stop_token &m_parar;
    QByteArray m_base;
    fs::file_time_type m_tope; // of the bag's own files
    QSaveFile m_salida;
    std::array<char, 65536> m_bloque = {};
    bolsa::Sumas m_sumas;
    bolsa::Sumas m_propias;
    qint64 m_hechos = 0;
    qint64 m_total = 0;
    qint64 m_archivos = 0;
    Final m_final = Final::Fallo;
    QString m_texto;
};

// What speaks against the copy before anything is read.
std::optional<Guardada> rechazo(const Encargo &encargo)
{
    std::error_code error;
    if (!fs::is_directory(encargo.carpeta, error))
        return Guardada{.texto = u"No hay tal carpeta: "_s + paraMostrar(encargo.carpeta)};
    if (quedaDentro(encargo.destino, encargo.carpeta))
        return Guardada{
            .texto = u"La copia no puede quedar dentro del histórico: elija otra carpeta."_s};
    if (!QUtf8StringView(enBytes(encargo.destino)).isValidUtf8())
        return Guardada{.texto = u"No se puede guardar con ese nombre: "_s
                                 + paraMostrar(encargo.destino)};
    const fs::file_status hay = fs::symlink_status(encargo.destino, error);
    if (fs::is_directory(hay))
        return Guardada{.texto = u"Es una carpeta: "_s + paraMostrar(encargo.destino)};
    if (fs::exists(hay) && !encargo.reemplazar)
        return Guardada{.final = Final::YaExiste,
                        .texto = u"Ya existe "_s + paraMostrar(encargo.destino)};
    return std::nullopt;
}

} // namespace

Guardada guardar(const Encargo &encargo, const Avance &avance, const std::stop_token &parar)
{
    if (!nombresEnUtf8())
        return {.texto = u"No se guardó la copia: este sistema no admite nombres con acentos."_s};
    if (auto no = rechazo(encargo))
        return *no;
    // By its real name: a link may be turned to another folder meanwhile, and only that name
    // tells the archive.
    std::error_code error;
    Encargo real = encargo;
    real.carpeta = fs::canonical(encargo.carpeta, error);
    if (error)
        return {.texto = u"No se puede leer: "_s + paraMostrar(encargo.carpeta)};
    const Inventario inventario = inventariar(real.carpeta, parar);
    if (inventario.detenido)
        return {.final = Final::Detenida, .texto = u"Se detuvo: no se guardó la copia."_s};
    if (const auto motivo = sinCopiar(inventario))
        return {.texto = u"No se guardó la copia. "_s + *motivo};
    return Copiado(real, inventario, avance, parar).hacer();
}

} // namespace copia
