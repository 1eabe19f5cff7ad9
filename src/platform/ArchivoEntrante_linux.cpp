// SPDX-License-Identifier: MIT
#include "ArchivoEntrante_linux.h"
#include "temporales.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>

#include <fcntl.h>
#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int maximoDeIntentos = 1000; // names tried for one temporary file

bool existeTodavia(const Descriptor &archivo)
{
    struct stat datos = {};
    return ::fstat(archivo.numero(), &datos) == 0 && datos.st_nlink > 0;
}

struct Intento {
    Descriptor archivo;
    bool ocupado = false; // without a file: another name may do
};

// Makes a file that was not there, and locks it. A lock that somebody else has, or a file that is
// gone again, is the doing of a process that took it for an abandoned one in between; a disk that
// knows no locks does without.
Intento crearTemporal(const Descriptor &carpeta, const QString &nombre)
{
    Descriptor archivo(::openat(carpeta.numero(), enDisco(nombre).constData(),
                                O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (!archivo)
        return {{}, errno == EEXIST};
    const bool ajeno = ::flock(archivo.numero(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (!ajeno && existeTodavia(archivo))
        return {std::move(archivo), false};
    // Whoever has the lock is removing it as well.
    [[maybe_unused]] const int quitado =
        ::unlinkat(carpeta.numero(), enDisco(nombre).constData(), 0);
    return {{}, true};
}

// What the system tells of the process in /proc, as far as it does.
temporales::Proceso leerProceso(qint64 numero)
{
    QFile estado(u"/proc/%1/stat"_s.arg(numero));
    if (!estado.open(QIODevice::ReadOnly))
        return {true, std::nullopt};
    const QByteArray linea = estado.readAll();
    // The name of the program, in brackets, may hold blanks and brackets itself.
    const QList<QByteArray> campos = linea.mid(linea.lastIndexOf(')') + 2).split(' ');
    constexpr qsizetype campoEstado = 0;
    constexpr qsizetype campoComienzo = 19; // in clock ticks since the system was started
    if (campos.size() <= campoComienzo)
        return {true, std::nullopt};
    const bool vive = campos[campoEstado] != "Z" && campos[campoEstado] != "X";
    timespec ahora = {};
    timespec encendido = {};
    if (::clock_gettime(CLOCK_REALTIME, &ahora) != 0
        || ::clock_gettime(CLOCK_BOOTTIME, &encendido) != 0)
        return {vive, std::nullopt};
    return {vive, ahora.tv_sec - encendido.tv_sec
                      + campos[campoComienzo].toLongLong() / ::sysconf(_SC_CLK_TCK)};
}

temporales::Proceso procesoDeNumero(qint64 numero)
{
    const auto pid = static_cast<pid_t>(numero);
    if (pid != numero || (::kill(pid, 0) != 0 && errno == ESRCH))
        return {};
    return leerProceso(numero);
}

// The lock of a temporary file whose writer lives no longer, to be held while it is removed; none
// if it lives, or if the entry is no file. A living writer has the lock itself, but for the moment
// before it takes it and the one before it renames the file: then its process is still there.
Descriptor candadoDeAbandonado(const Descriptor &carpeta, const QString &nombre)
{
    const QByteArray enElDisco = enDisco(nombre);
    const auto proceso = temporales::procesoDe(nombre);
    struct stat datos = {};
    if (::fstatat(carpeta.numero(), enElDisco.constData(), &datos, AT_SYMLINK_NOFOLLOW) != 0
        || !S_ISREG(datos.st_mode) || !proceso
        || temporales::puedeSerElEscritor(procesoDeNumero(*proceso), datos.st_mtim.tv_sec))
        return {};
    Descriptor archivo(::openat(carpeta.numero(), enElDisco.constData(),
                                O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!archivo || ::flock(archivo.numero(), LOCK_EX | LOCK_NB) != 0)
        return {};
    return archivo;
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
        if (!m_creado || m_publicado)
            return;
        m_archivo.close();
        // One that cannot be removed is an abandoned one to the next download.
        [[maybe_unused]] const bool quitado =
            m_raiz.nombres.cambiar(m_carpeta.numero(), m_temporal, Queda::Igual, [this] {
                return ::unlinkat(m_carpeta.numero(), enDisco(m_temporal).constData(), 0) == 0;
            });
    }

    bool abrir()
    {
        Intento intento;
        const auto crear = [&] {
            m_temporal = m_raiz.recibidos.siguiente(::getpid());
            intento = crearTemporal(m_carpeta, m_temporal);
            return bool(intento.archivo);
        };
        for (int vez = 0; !m_creado && vez < maximoDeIntentos && (vez == 0 || intento.ocupado);
             ++vez)
            m_creado = m_raiz.nombres.cambiar(m_carpeta.numero(), {}, Queda::Igual, crear);
        return m_creado
               && m_archivo.open(intento.archivo.soltar(), QIODevice::WriteOnly,
                                 QFileDevice::AutoCloseHandle);
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
    bool m_creado = false;
    bool m_publicado = false;
};

} // namespace

void quitarTemporalesAbandonados(NombresDeCarpeta &nombres, const Descriptor &carpeta)
{
    const QStringList temporales = nombres.temporales(carpeta.numero());
    for (const QString &temporal : temporales) {
        const Descriptor candado = candadoDeAbandonado(carpeta, temporal);
        if (!candado)
            continue;
        // One that stays is tried again at the next download.
        [[maybe_unused]] const bool quitado =
            nombres.cambiar(carpeta.numero(), temporal, NombresDeCarpeta::Queda::Olvidado, [&] {
                return ::unlinkat(carpeta.numero(), enDisco(temporal).constData(), 0) == 0;
            });
    }
}

std::unique_ptr<ArchivoEntrante> recibirEn(RaizArchivo &raiz, const QStringList &ruta,
                                           Descriptor carpeta, const QString &nombre)
{
    auto archivo = std::make_unique<ArchivoEntranteLinux>(raiz, ruta, std::move(carpeta), nombre);
    if (!archivo->abrir())
        return nullptr;
    return archivo;
}
