// SPDX-License-Identifier: MIT
#include "RaizArchivo_linux.h"
#include "platform/nombresNativos.h"

#include <QDir>
#include <QFileInfo>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int soloNombrar = O_PATH | O_DIRECTORY | O_CLOEXEC;
constexpr int maximoDeEnlaces = 8; // on the way to one folder

// A folder in its exact spelling, the system itself seeing to it that no link is followed which
// `comoMucho` (RESOLVE_...) does not allow.
Descriptor abrirExacta(int desde, const QString &ruta, unsigned comoMucho)
{
    open_how como = {};
    como.flags = soloNombrar;
    como.resolve = comoMucho;
    const long numero =
        ::syscall(SYS_openat2, desde, enDisco(ruta).constData(), &como, sizeof como);
    return Descriptor(static_cast<int>(numero));
}

QString rutaReal(const Descriptor &carpeta, const QString &dentro = QString())
{
    return QFileInfo(u"/proc/self/fd/%1/"_s.arg(carpeta.numero()) + dentro).canonicalFilePath();
}

} // namespace

RaizArchivo::RaizArchivo(const QString &personal, const QString &nombre)
    : m_personal(QDir::isAbsolutePath(personal) ? QDir::cleanPath(personal) : QString()),
      m_nombre(nombre)
{
}

bool RaizArchivo::esRaiz(const QString &nombre) const
{
    return nombresNativos::plegado(nombre) == nombresNativos::plegado(m_nombre);
}

Descriptor RaizArchivo::abrirPersonal() const
{
    // Without a drive C there is nothing to open: the path is empty.
    return Descriptor(::open(enDisco(m_personal).constData(), soloNombrar));
}

Descriptor RaizArchivo::abrirRaiz()
{
    if (!hayUnidad())
        return {};
    Descriptor exacta(::open(enDisco(m_personal + u'/' + m_nombre).constData(), soloNombrar));
    if (exacta)
        return exacta;
    const Descriptor personal = abrirPersonal();
    const auto entrada = personal ? nombres.hallar(personal.numero(), m_nombre) : std::nullopt;
    if (!entrada)
        return {};
    return Descriptor(
        ::openat(personal.numero(), enDisco(entrada->nombre).constData(), soloNombrar));
}

Descriptor RaizArchivo::abrirCarpeta(const QStringList &nombres)
{
    const QString dentro = nombres.join(u'/');
    // Where there is no link at all, root and folder are opened as one: this is done twice a page.
    if (hayUnidad() && !nombres.isEmpty()) {
        Descriptor carpeta = abrirExacta(AT_FDCWD, m_personal + u'/' + m_nombre + u'/' + dentro,
                                         RESOLVE_NO_SYMLINKS);
        if (carpeta)
            return carpeta;
    }
    Descriptor raiz = abrirRaiz();
    if (!raiz || nombres.isEmpty())
        return raiz;
    Descriptor carpeta =
        abrirExacta(raiz.numero(), dentro, RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS);
    // Another spelling, a link that is written from the disk's top, or a system that does not
    // know the call: each name is looked up by itself.
    return carpeta ? std::move(carpeta) : andar(std::move(raiz), nombres);
}

Descriptor RaizArchivo::andar(Descriptor carpeta, QStringList pendientes)
{
    for (int enlaces = 0; carpeta && !pendientes.isEmpty();) {
        const auto entrada = nombres.hallar(carpeta.numero(), pendientes.takeFirst());
        if (!entrada)
            return {};
        if (S_ISLNK(entrada->datos.st_mode)) {
            const auto adonde = destino(carpeta, entrada->nombre);
            if (!adonde || ++enlaces > maximoDeEnlaces)
                return {};
            pendientes = *adonde + pendientes;
            carpeta = abrirRaiz();
            continue;
        }
        carpeta = Descriptor(::openat(carpeta.numero(), enDisco(entrada->nombre).constData(),
                                      soloNombrar | O_NOFOLLOW));
    }
    return carpeta;
}

std::optional<QStringList> RaizArchivo::destino(const Descriptor &carpeta, const QString &enlace)
{
    const Descriptor raiz = abrirRaiz();
    return nombresNativos::desdeRaiz(raiz ? rutaReal(raiz) : QString(), rutaReal(carpeta, enlace));
}

std::optional<RaizArchivo::Archivo> RaizArchivo::archivo(const Descriptor &carpeta,
                                                         const NombresDeCarpeta::Entrada &entrada)
{
    if (S_ISREG(entrada.datos.st_mode))
        return Archivo{{}, entrada};
    if (!S_ISLNK(entrada.datos.st_mode))
        return std::nullopt;
    auto adonde = destino(carpeta, entrada.nombre);
    if (!adonde || adonde->isEmpty())
        return std::nullopt;
    const QString nombre = adonde->takeLast();
    Descriptor madre = abrirCarpeta(*adonde);
    const auto real = madre ? nombres.hallar(madre.numero(), nombre) : std::nullopt;
    if (!real || !S_ISREG(real->datos.st_mode))
        return std::nullopt;
    return Archivo{std::move(madre), *real};
}

QString RaizArchivo::seguir(QString ruta, const QStringList &pedidos)
{
    for (const QString &pedido : pedidos) {
        const Descriptor carpeta(::open(enDisco(ruta + u'/').constData(), soloNombrar));
        const auto entrada = carpeta ? nombres.hallar(carpeta.numero(), pedido) : std::nullopt;
        ruta += u'/' + (entrada ? entrada->nombre : pedido);
    }
    return ruta;
}

QString RaizArchivo::rutaNativa(const QStringList &pedidos)
{
    if (pedidos.isEmpty())
        return m_personal;
    const QString personal = m_personal == u"/" ? QString() : m_personal;
    QString primero = pedidos.first();
    // However the root is spelled in the path, it is the same folder as for writing.
    if (esRaiz(primero) && abrirRaiz())
        primero = m_nombre;
    return seguir(personal, QStringList{primero} + pedidos.mid(1));
}

std::optional<QString> RaizArchivo::rutaNativa(const QString &carpeta, const QStringList &pedidos)
{
    const Descriptor raiz = abrirRaiz();
    struct stat datos = {};
    if (!raiz || ::fstatat(raiz.numero(), enDisco(carpeta).constData(), &datos, 0) != 0
        || !S_ISDIR(datos.st_mode))
        return std::nullopt;
    return seguir(rutaNativa({m_nombre}) + u'/' + carpeta, pedidos);
}
