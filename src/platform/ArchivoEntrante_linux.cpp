#include "platform/ArchivoEntrante_linux.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>

namespace {

constexpr int maximoDeIntentos = 1000; // names tried for one temporary file

// Counts the temporary names of this process, so that two downloads that are under way at once
// do not ask for the same.
QString siguienteTemporal()
{
    static unsigned contador = 0;
    return QStringLiteral(".descarga-%1-%2").arg(::getpid()).arg(++contador);
}

struct Intento {
    Descriptor archivo;
    bool ocupado = false; // without a file: another name may do
};

// Makes a file that was not there: the names are easily guessed, and what stands under one is
// neither followed nor cut off.
Intento crearTemporal(const Descriptor &carpeta, const QString &nombre)
{
    Descriptor archivo(::openat(carpeta.numero(), enDisco(nombre).constData(),
                                O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    const bool ocupado = !archivo && errno == EEXIST;
    return {std::move(archivo), ocupado};
}

// A file that remembers a write cut short: on a full disk QFile reports the bytes that still went
// in, and no error.
class ArchivoTemporal final : public QFile {
public:
    // Writes what is left and closes. False when any byte did not reach its place, also when the
    // disk says so only now.
    bool terminar()
    {
        const bool escrito = flush() && m_entero;
        close();
        return escrito && error() == QFileDevice::NoError;
    }

protected:
    qint64 writeData(const char *datos, qint64 cuantos) override
    {
        const qint64 escritos = QFile::writeData(datos, cuantos);
        m_entero = m_entero && escritos == cuantos;
        return escritos;
    }

private:
    bool m_entero = true;
};

class ArchivoEntranteLinux final : public ArchivoEntrante {
public:
    using Queda = NombresDeCarpeta::Queda;

    ArchivoEntranteLinux(RaizArchivo &raiz, const QStringList &ruta, Descriptor carpeta,
                         const QString &nombre)
        : m_raiz(raiz), m_ruta(ruta), m_carpeta(std::move(carpeta)), m_nombre(nombre)
    {
    }

    ~ArchivoEntranteLinux() override
    {
        if (!m_abierto || m_publicado)
            return;
        m_archivo.close();
        // One that cannot be removed stays; nothing else is to be done about it.
        [[maybe_unused]] const bool quitado =
            m_raiz.nombres.cambiar(m_carpeta.numero(), m_temporal, Queda::Igual, [this] {
                return ::unlinkat(m_carpeta.numero(), enDisco(m_temporal).constData(), 0) == 0;
            });
    }

    bool abrir()
    {
        Intento intento;
        const auto crear = [&] {
            m_temporal = siguienteTemporal();
            intento = crearTemporal(m_carpeta, m_temporal);
            return bool(intento.archivo);
        };
        bool creado = false;
        for (int vez = 0; !creado && vez < maximoDeIntentos && (vez == 0 || intento.ocupado); ++vez)
            creado = m_raiz.nombres.cambiar(m_carpeta.numero(), {}, Queda::Igual, crear);
        m_abierto = creado
                    && m_archivo.open(intento.archivo.soltar(), QIODevice::WriteOnly,
                                      QFileDevice::AutoCloseHandle);
        return m_abierto;
    }

    QIODevice &dispositivo() override { return m_archivo; }

    bool publicar() override
    {
        // No fsync: it would cost 4 to 6 ms a file, and an archive holds thousands.
        if (!m_archivo.terminar() || !estaEnSuSitio())
            return false;
        m_publicado = m_raiz.nombres.cambiar(m_carpeta.numero(), m_nombre, Queda::Anotado, [this] {
            return ::renameat(m_carpeta.numero(), enDisco(m_temporal).constData(),
                              m_carpeta.numero(), enDisco(m_nombre).constData())
                   == 0;
        });
        return m_publicado;
    }

private:
    // A download takes its time: the folder may have been moved out of the archive meanwhile.
    bool estaEnSuSitio()
    {
        const Descriptor ahora = m_raiz.abrirCarpeta(m_ruta);
        struct stat una = {};
        struct stat otra = {};
        return ahora && ::fstat(ahora.numero(), &una) == 0
               && ::fstat(m_carpeta.numero(), &otra) == 0 && una.st_dev == otra.st_dev
               && una.st_ino == otra.st_ino;
    }

    RaizArchivo &m_raiz;
    QStringList m_ruta;
    Descriptor m_carpeta;
    QString m_nombre;
    QString m_temporal;
    ArchivoTemporal m_archivo;
    bool m_abierto = false;
    bool m_publicado = false;
};

} // namespace

std::unique_ptr<ArchivoEntrante> recibirEn(RaizArchivo &raiz, const QStringList &ruta,
                                           Descriptor carpeta, const QString &nombre)
{
    auto archivo = std::make_unique<ArchivoEntranteLinux>(raiz, ruta, std::move(carpeta), nombre);
    if (!archivo->abrir())
        return nullptr;
    return archivo;
}
