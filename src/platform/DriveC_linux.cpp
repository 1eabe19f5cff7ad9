// SPDX-License-Identifier: MIT
#include "ArchivoEntrante_linux.h"
#include "RaizArchivo_linux.h"
#include "platform/DriveC.h"
#include "platform/nombresNativos.h"
#include "platform/rutaWindows.h"
#include "rutaNativa.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <pwd.h>

namespace {

using Queda = NombresDeCarpeta::Queda;

// How often a file that others go on writing is put in their place.
constexpr int vecesQueSeReemplaza = 100;

bool esOtraEscritura(const QFileInfo &entrada)
{
    return entrada.isSymLink()
           && nombresNativos::esOtraEscritura(entrada.absoluteFilePath(), entrada.symLinkTarget());
}

bool escribirTodo(Descriptor &archivo, const QByteArray &bytes)
{
    qsizetype escritos = 0;
    while (escritos < bytes.size()) {
        const ssize_t estaVez = ::write(archivo.numero(), bytes.constData() + escritos,
                                        static_cast<size_t>(bytes.size() - escritos));
        if (estaVez > 0)
            escritos += estaVez;
        else if (estaVez == 0 || errno != EINTR)
            return false;
    }
    return archivo.cerrar();
}

QString carpetaDeLaCuenta()
{
    constexpr long alMenos = 16384;
    QByteArray lugar(static_cast<qsizetype>(std::max(::sysconf(_SC_GETPW_R_SIZE_MAX), alMenos)),
                     Qt::Uninitialized);
    passwd cuenta = {};
    passwd *hallada = nullptr;
    if (::getpwuid_r(::getuid(), &cuenta, lugar.data(), static_cast<size_t>(lugar.size()), &hallada)
            != 0
        || !hallada)
        return {};
    return QString::fromUtf8(hallada->pw_dir);
}

constexpr int paraAgregar = O_WRONLY | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

// Opens a file that stands there, and none that somebody put in its place meanwhile: opening a
// pipe would wait, and a file with a second name would change under that name as well.
Descriptor abrirExistente(int carpeta, const QString &nombre)
{
    Descriptor archivo(::openat(carpeta, enDisco(nombre).constData(), paraAgregar));
    struct stat datos = {};
    if (!archivo || ::fstat(archivo.numero(), &datos) != 0 || !S_ISREG(datos.st_mode)
        || datos.st_nlink != 1)
        return {};
    return archivo;
}

} // namespace

class DriveC::Interno {
public:
    Interno(const QString &personal, const QString &nombreRaiz) : raiz(personal, nombreRaiz) {}

    RaizArchivo raiz;

    // A file, or nothing yet, in its open folder.
    struct Sitio {
        QStringList ruta;
        Descriptor carpeta;
        QString pedido;
        std::optional<NombresDeCarpeta::Entrada> entrada; // what stands there
        std::optional<RaizArchivo::Archivo> archivo;      // the file that it leads to

        int numero() const { return carpeta.numero(); }
        QString nombre() const { return entrada ? entrada->nombre : pedido; }
    };
    // Nothing where no file can be.
    std::optional<Sitio> sitio(const QString &ruta)
    {
        const auto hallado = rutaWindows::archivoEn(raiz.nombre(), ruta);
        if (!hallado)
            return std::nullopt;
        Sitio resultado{
            hallado->carpeta, raiz.abrirCarpeta(hallado->carpeta), hallado->nombre, {}, {}};
        if (!resultado.carpeta)
            return std::nullopt;
        resultado.entrada = raiz.nombres.hallar(resultado.numero(), resultado.pedido);
        if (!resultado.entrada)
            return resultado;
        resultado.archivo = raiz.archivo(resultado.carpeta, *resultado.entrada);
        if (!resultado.archivo)
            return std::nullopt;
        return resultado;
    }

    Descriptor abrirParaAgregar(const Sitio &sitio)
    {
        if (sitio.archivo) {
            const Descriptor &carpeta =
                sitio.archivo->carpeta ? sitio.archivo->carpeta : sitio.carpeta;
            return abrirExistente(carpeta.numero(), sitio.archivo->entrada.nombre);
        }
        return crear(sitio);
    }

    // A file of its own, or none: never one that somebody else has just made.
    Descriptor crear(const Sitio &sitio)
    {
        Descriptor nuevo;
        [[maybe_unused]] const bool hecho =
            raiz.nombres.cambiar(sitio.numero(), sitio.pedido, Queda::Anotado, [&] {
                nuevo = Descriptor(::openat(sitio.numero(), enDisco(sitio.pedido).constData(),
                                            paraAgregar | O_CREAT | O_EXCL, 0666));
                return bool(nuevo);
            });
        return nuevo;
    }

    enum class Borrado { Hecho, Falta, No };
    Borrado borrar(const Sitio &sitio)
    {
        if (!sitio.entrada)
            return Borrado::Falta;
        // A link to a file goes itself; what it leads to stays.
        const QString nombre = sitio.nombre();
        Borrado fin = Borrado::Hecho;
        const bool borrado = raiz.nombres.cambiar(sitio.numero(), nombre, Queda::Olvidado, [&] {
            if (::unlinkat(sitio.numero(), enDisco(nombre).constData(), 0) != 0)
                fin = errno == ENOENT ? Borrado::Falta : Borrado::No;
            return fin == Borrado::Hecho;
        });
        if (borrado)
            raiz.nombres.anotarBorrado(sitio.numero(), sitio.pedido);
        return fin;
    }

    // A folder is given a link of the spelling asked for.
    void enlazarEscritura(const Descriptor &carpeta, const QString &existente,
                          const QString &pedido)
    {
        struct stat datos = {};
        if (::fstatat(carpeta.numero(), enDisco(existente).constData(), &datos, 0) != 0
            || !S_ISDIR(datos.st_mode))
            return;
        // A disk that knows no links shows the pages all the same, but for some of their links.
        [[maybe_unused]] const bool enlazado =
            raiz.nombres.cambiar(carpeta.numero(), pedido, Queda::Igual, [&] {
                return ::symlinkat(enDisco(existente).constData(), carpeta.numero(),
                                   enDisco(pedido).constData())
                       == 0;
            });
    }
};

QString DriveC::carpetaPersonal()
{
    const QString pedida = QString::fromUtf8(qgetenv("HOME"));
    const QString carpeta = QDir::isAbsolutePath(pedida) ? pedida : carpetaDeLaCuenta();
    return QDir::isAbsolutePath(carpeta) ? QDir::cleanPath(carpeta) : QString();
}

DriveC::DriveC(const QString &carpetaPersonal, const QString &raiz)
    : d(std::make_unique<Interno>(carpetaPersonal, raiz))
{
}

DriveC::~DriveC() = default;

bool DriveC::crearCarpeta(const QString &ruta)
{
    const auto lugar = rutaWindows::lugarEn(d->raiz.nombre(), ruta);
    if (!lugar)
        return false;
    RaizArchivo &raiz = d->raiz;
    const Descriptor carpeta =
        lugar->esRaiz ? raiz.abrirPersonal() : raiz.abrirCarpeta(lugar->carpeta);
    if (!carpeta)
        return false;
    const auto entrada = raiz.nombres.hallar(carpeta.numero(), lugar->nombre);
    if (entrada) {
        // The root itself gets no second spelling: the link would stand outside of it.
        const auto destino = nombresNativos::enlacePara(lugar->nombre, entrada->nombre);
        if (!lugar->esRaiz && destino)
            d->enlazarEscritura(carpeta, *destino, lugar->nombre);
        return false;
    }
    return raiz.nombres.cambiar(carpeta.numero(), lugar->nombre, Queda::Anotado, [&] {
        return ::mkdirat(carpeta.numero(), enDisco(lugar->nombre).constData(), 0777) == 0;
    });
}

bool DriveC::borrar(const QString &ruta)
{
    const auto sitio = d->sitio(ruta);
    return sitio && d->borrar(*sitio) == Interno::Borrado::Hecho;
}

std::optional<qint64> DriveC::largo(const QString &ruta) const
{
    const auto sitio = d->sitio(ruta);
    if (!sitio || !sitio->archivo)
        return std::nullopt;
    return sitio->archivo->entrada.datos.st_size;
}

bool DriveC::agregar(const QString &ruta, const QByteArray &bytes)
{
    const auto sitio = d->sitio(ruta);
    if (!sitio)
        return false;
    Descriptor archivo = d->abrirParaAgregar(*sitio);
    return archivo && escribirTodo(archivo, bytes);
}

bool DriveC::escribir(const QString &ruta, const QByteArray &bytes)
{
    for (int vez = 0; vez < vecesQueSeReemplaza; ++vez) {
        const auto sitio = d->sitio(ruta);
        if (!sitio)
            return false;
        if (!sitio->entrada) {
            if (Descriptor nuevo = d->crear(*sitio))
                return escribirTodo(nuevo, bytes);
            if (errno != EEXIST)
                break;
        }
        // One that somebody else has deleted first is gone as well.
        if (d->borrar(*sitio) == Interno::Borrado::No)
            break;
    }
    return agregar(ruta, bytes);
}

std::unique_ptr<ArchivoEntrante> DriveC::recibir(const QString &ruta)
{
    auto sitio = d->sitio(ruta);
    if (!sitio)
        return nullptr;
    quitarTemporalesAbandonados(d->raiz.nombres, sitio->carpeta);
    const QString nombre = sitio->nombre();
    return recibirEn(d->raiz, sitio->ruta, std::move(sitio->carpeta), nombre);
}

std::optional<QStringList> DriveC::carpetas(const QString &ruta) const
{
    const bool enC = rutaWindows::enUnidadC(ruta);
    QString carpeta = ruta;
    if (enC) {
        const auto nombres = rutaWindows::nombres(ruta);
        if (!nombres || !d->raiz.hayUnidad())
            return std::nullopt;
        carpeta = d->raiz.rutaNativa(*nombres);
    }
    const QDir directorio(carpeta);
    if (!QFileInfo(carpeta).isDir())
        return std::nullopt;
    const QFileInfoList entradas = directorio.entryInfoList(
        QDir::Dirs | QDir::NoDotAndDotDot | (enC ? QDir::Hidden : QDir::Filters()));
    QStringList nombres;
    for (const QFileInfo &entrada : entradas) {
        if (!esOtraEscritura(entrada))
            nombres.append(entrada.fileName());
    }
    return rutaWindows::listado(ruta, nombres);
}

QString DriveC::rutaNativa(const QString &ruta) const
{
    return rutaNativaDe(d->raiz, ruta);
}
