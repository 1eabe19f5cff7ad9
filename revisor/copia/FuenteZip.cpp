// SPDX-License-Identifier: MIT
// A ZIP read by its list of contents, as those programs do with which it will be unpacked; and by
// another library than the one that wrote it, so that a fault of that one comes out.
#include "bolsa.h"
#include "fuentes.h"
#include "platform/recorrido.h"
#include "segundaLectura.h"

#include <zip.h>

#include <array>
#include <limits>
#include <set>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace copia {

namespace {

struct CerrarZip {
    void operator()(zip_t *zip) const { zip_discard(zip); }
};
struct CerrarArchivo {
    // What a close could fail in has been told by the last read.
    void operator()(zip_file_t *archivo) const { static_cast<void>(zip_fclose(archivo)); }
};

class FuenteZip : public Fuente {
public:
    FuenteZip(const fs::path &ruta, const std::stop_token &parar) : m_ruta(ruta), m_parar(parar)
    {
        int fallo = 0;
        const std::u8string nombre = recorrido::paraAbrir(ruta).u8string();
        m_zip.reset(zip_open(reinterpret_cast<const char *>(nombre.c_str()), ZIP_RDONLY, &fallo));
        std::error_code error;
        const auto largo = fs::file_size(ruta, error);
        if (!m_zip || error) {
            m_rechazo = fallo == ZIP_ER_OPEN || fallo == ZIP_ER_READ || error
                            ? u"No se puede leer el archivo."_s
                            : u"No es un ZIP, o está cortado o dañado."_s;
            return;
        }
        m_tope = topeDe(largo);
        const zip_int64_t cuantas = zip_get_num_entries(m_zip.get(), 0);
        for (zip_int64_t i = 0; i < cuantas && m_rechazo.isEmpty(); ++i)
            anotar(static_cast<zip_uint64_t>(i));
    }

    const std::vector<Entrada> &entradas() const override { return m_entradas; }
    std::vector<QByteArray> extranas() const override { return {}; }
    qint64 tope() const override { return m_tope; }
    QString rechazo() const override { return m_rechazo; }

    // Other programs may go by the other names, or stop at the difference.
    QString reparo() const override
    {
        return coinciden() ? QString()
                           : u"El ZIP está dañado: su lista de contenido no coincide con lo que "
                             u"guarda. Otros programas pueden no leerlo."_s;
    }

    Lectura leer(std::size_t indice, const Recibir &recibir) override
    {
        const std::unique_ptr<zip_file_t, CerrarArchivo> archivo(
            zip_fopen_index(m_zip.get(), m_indices.at(indice), 0));
        if (!archivo)
            return noSeAbre(zip_error_code_zip(zip_get_error(m_zip.get())));
        qint64 leidos = 0;
        for (;;) {
            const zip_int64_t cuantos = zip_fread(archivo.get(), m_bloque.data(), m_bloque.size());
            leidos += cuantos;
            if (cuantos < 0 || leidos > m_entradas.at(indice).bytes)
                return Lectura::Rota;
            if (!recibir({m_bloque.data(), static_cast<std::size_t>(cuantos)}))
                return Lectura::Interrumpida;
            if (cuantos == 0)
                return Lectura::Entera;
        }
    }

private:
    // Deflate makes no more than this of one byte, so that files which hold more share their
    // bytes: such a ZIP was made to keep its reader busy.
    static qint64 topeDe(std::uintmax_t largo)
    {
        constexpr qint64 veces = 1032;
        constexpr qint64 mayor = std::numeric_limits<qint64>::max() / veces;
        return largo > static_cast<std::uintmax_t>(mayor) ? std::numeric_limits<qint64>::max()
                                                          : static_cast<qint64>(largo) * veces;
    }

    bool coinciden() const
    {
        const auto nombres = leerOtraVez(m_ruta, m_tope, m_parar);
        const zip_int64_t cuantas = zip_get_num_entries(m_zip.get(), 0);
        if (!nombres || nombres->size() != static_cast<std::size_t>(cuantas))
            return false;
        // Which of the two spellings the other library gives depends on what marks the ZIP has.
        const auto esta = [&](zip_uint64_t indice, zip_flags_t cual) {
            const char *nombre = zip_get_name(m_zip.get(), indice, cual);
            return nombre != nullptr && nombres->contains(comparable(nombre));
        };
        for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(cuantas); ++i) {
            if (!esta(i, ZIP_FL_ENC_RAW) && !esta(i, ZIP_FL_ENC_GUESS))
                return false;
        }
        return true;
    }

    void anotar(zip_uint64_t indice)
    {
        zip_stat_t datos;
        if (zip_stat_index(m_zip.get(), indice, 0, &datos) != 0 || datos.name == nullptr
            || (datos.valid & ZIP_STAT_SIZE) == 0) {
            m_rechazo = u"La lista de contenido del ZIP está dañada."_s;
            return;
        }
        QByteArray nombre = datos.name;
        const bool esCarpeta = nombre.endsWith('/');
        if (esCarpeta)
            nombre.chop(1);
        const QString mostrado = QString::fromUtf8(nombre);
        if (!bolsa::esSegura(nombre) || !esLoQueParece(indice, esCarpeta))
            m_rechazo =
                u"No es una copia de fiar: contiene un nombre o un enlace que lleva fuera de "
                u"ella: "_s
                + mostrado;
        else if (!m_vistos.insert(nombre).second)
            m_rechazo = u"No es una copia de fiar: contiene dos veces "_s + mostrado;
        else if (datos.size > static_cast<zip_uint64_t>(std::numeric_limits<qint64>::max()))
            m_rechazo = u"No es una copia de fiar: es imposible el tamaño de "_s + mostrado;
        if (!m_rechazo.isEmpty() || esCarpeta)
            return;
        m_entradas.push_back({.nombre = nombre, .bytes = static_cast<qint64>(datos.size)});
        m_indices.push_back(indice);
    }

    // Neither a link nor anything else that a file must not become when it is unpacked.
    bool esLoQueParece(zip_uint64_t indice, bool esCarpeta) const
    {
        constexpr unsigned posicion = 16; // where the kind of file stands
        constexpr zip_uint32_t clases = 0170000;
        constexpr zip_uint32_t carpeta = 0040000;
        constexpr zip_uint32_t archivo = 0100000;
        zip_uint8_t sistema = 0;
        zip_uint32_t atributos = 0;
        if (zip_file_get_external_attributes(m_zip.get(), indice, 0, &sistema, &atributos) != 0)
            return false;
        const zip_uint32_t clase = (atributos >> posicion) & clases;
        return sistema != ZIP_OPSYS_UNIX || clase == 0 || clase == (esCarpeta ? carpeta : archivo);
    }

    Lectura noSeAbre(int fallo)
    {
        // Not changed: only packed anew by somebody, in a way that this library does not know.
        if (fallo == ZIP_ER_COMPNOTSUPP || fallo == ZIP_ER_ENCRNOTSUPP || fallo == ZIP_ER_NOPASSWD)
            m_rechazo = u"El ZIP está comprimido o cifrado de una manera que este programa no lee. "
                        u"Saque su contenido en una carpeta y compruebe la carpeta."_s;
        return Lectura::Rota;
    }

    fs::path m_ruta;
    std::stop_token m_parar;
    std::unique_ptr<zip_t, CerrarZip> m_zip;
    std::vector<Entrada> m_entradas;
    std::vector<zip_uint64_t> m_indices;
    std::set<QByteArray> m_vistos;
    std::array<char, 65536> m_bloque = {};
    qint64 m_tope = 0;
    QString m_rechazo;
};

} // namespace

std::unique_ptr<Fuente> fuenteZip(const fs::path &zip, const std::stop_token &parar)
{
    return std::make_unique<FuenteZip>(zip, parar);
}

} // namespace copia
