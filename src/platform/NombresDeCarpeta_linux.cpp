// SPDX-License-Identifier: MIT
#include "NombresDeCarpeta_linux.h"
#include "Descriptor_linux.h"
#include "platform/nombresNativos.h"
#include "temporales.h"

#include <algorithm>
#include <array>
#include <memory>

#include <dirent.h>
#include <fcntl.h>

using namespace Qt::StringLiterals;
using nombresNativos::plegado;

namespace {

struct CierraDirectorio {
    void operator()(DIR *directorio) const
    {
        // It was only read.
        [[maybe_unused]] const int cerrado = ::closedir(directorio);
    }
};

// Whether a link is no entry of its own, but stands beside one for its other spelling.
bool esOtraEscritura(int carpeta, const QString &nombre)
{
    std::array<char, 1024> destino{};
    const ssize_t largo =
        ::readlinkat(carpeta, enDisco(nombre).constData(), destino.data(), destino.size());
    return largo > 0
           && nombresNativos::esOtraEscritura(nombre, QString::fromUtf8(destino.data(), largo));
}

// A spelling that is the folded name itself is not remembered: it is looked for on the disk when
// it is wanted. Nearly all names of an archive are such ones, and it may hold some 100,000.
void agregarEscritura(QHash<QString, QStringList> &escrituras, const QString &nombre)
{
    const QString comun = plegado(nombre);
    if (nombre == comun)
        return;
    QStringList &deEste = escrituras[comun];
    if (!deEste.contains(nombre))
        deEste.append(nombre);
}

} // namespace

std::optional<struct stat> NombresDeCarpeta::datosDe(int carpeta)
{
    struct stat datos = {};
    if (::fstat(carpeta, &datos) != 0 || !S_ISDIR(datos.st_mode))
        return std::nullopt;
    return datos;
}

NombresDeCarpeta::Momento NombresDeCarpeta::momentoDe(const struct stat &datos)
{
    return {datos.st_mtim.tv_sec, datos.st_mtim.tv_nsec};
}

void NombresDeCarpeta::leer(Listado &listado, int carpeta)
{
    listado.escrituras.clear();
    listado.temporales.clear();
    listado.leido = false;
    // The folder's own descriptor may be one that names it only and cannot be read.
    Descriptor legible(::openat(carpeta, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, CierraDirectorio> entradas(::fdopendir(legible.numero()));
    if (!entradas)
        return; // it may be entered and not read: names are found in their exact spelling only
    [[maybe_unused]] const int delDirectorio = legible.soltar();
    listado.leido = true;
    while (const dirent *entrada = ::readdir(entradas.get())) {
        const QByteArray bytes(entrada->d_name);
        const QString nombre = QString::fromUtf8(bytes);
        // A name that is no text can be asked for by nobody.
        if (bytes == "." || bytes == ".." || enDisco(nombre) != bytes)
            continue;
        if (temporales::procesoDe(nombre))
            listado.temporales.append(nombre);
        else if ((entrada->d_type != DT_LNK && entrada->d_type != DT_UNKNOWN)
                 || !esOtraEscritura(carpeta, nombre))
            agregarEscritura(listado.escrituras, nombre);
    }
}

void NombresDeCarpeta::tomarCambio(Listado &listado, int carpeta, const QString &nombre,
                                   Queda queda)
{
    if (queda == Queda::Anotado) {
        agregarEscritura(listado.escrituras, nombre);
    } else if (queda == Queda::Olvidado) {
        const auto hallado = listado.escrituras.find(plegado(nombre));
        if (hallado != listado.escrituras.end())
            hallado->removeOne(nombre);
        if (hallado != listado.escrituras.end() && hallado->isEmpty())
            listado.escrituras.erase(hallado);
        listado.temporales.removeOne(nombre);
    }
    const auto datos = datosDe(carpeta);
    listado.cambio = datos ? momentoDe(*datos) : Momento();
}

NombresDeCarpeta::Listado *NombresDeCarpeta::alDia(int carpeta)
{
    const auto datos = datosDe(carpeta);
    if (!datos)
        return nullptr;
    const auto listado = m_listados.find({datos->st_dev, datos->st_ino});
    return listado != m_listados.end() && listado->cambio == momentoDe(*datos) ? &*listado
                                                                               : nullptr;
}

NombresDeCarpeta::Listado *NombresDeCarpeta::listadoDe(int carpeta)
{
    const auto datos = datosDe(carpeta);
    if (!datos)
        return nullptr;
    Listado &listado = m_listados[{datos->st_dev, datos->st_ino}];
    if (listado.cambio != momentoDe(*datos)) {
        listado.cambio = momentoDe(*datos);
        leer(listado, carpeta);
    }
    return &listado;
}

QStringList NombresDeCarpeta::escriturasDe(const Listado &listado, int carpeta,
                                           const QString &comun)
{
    QStringList escrituras = listado.escrituras.value(comun);
    struct stat datos = {};
    if (listado.leido && !::temporales::procesoDe(comun)
        && ::fstatat(carpeta, enDisco(comun).constData(), &datos, AT_SYMLINK_NOFOLLOW) == 0
        && (!S_ISLNK(datos.st_mode) || !esOtraEscritura(carpeta, comun)))
        escrituras.append(comun);
    return escrituras;
}

std::optional<NombresDeCarpeta::Entrada> NombresDeCarpeta::hallar(int carpeta,
                                                                  const QString &nombre)
{
    Entrada entrada;
    const auto existe = [&](const QString &escritura) {
        entrada.nombre = escritura;
        return ::fstatat(carpeta, enDisco(escritura).constData(), &entrada.datos,
                         AT_SYMLINK_NOFOLLOW)
               == 0;
    };
    if (existe(nombre))
        return entrada;
    const Listado *listado = listadoDe(carpeta);
    if (!listado || listado->borrados.contains(nombre))
        return std::nullopt;
    const QString comun = plegado(nombre);
    const QStringList candidatos = nombresNativos::candidatos(
        // The name itself has just been looked for.
        nombre == comun ? listado->escrituras.value(comun) : escriturasDe(*listado, carpeta, comun),
        nombre);
    if (!std::any_of(candidatos.begin(), candidatos.end(), existe))
        return std::nullopt;
    return entrada;
}

QStringList NombresDeCarpeta::temporales(int carpeta)
{
    const Listado *listado = listadoDe(carpeta);
    return listado ? listado->temporales : QStringList();
}

void NombresDeCarpeta::anotarBorrado(int carpeta, const QString &pedido)
{
    Listado *listado = listadoDe(carpeta);
    // Only where another spelling remains is there anything to keep apart.
    if (listado && !escriturasDe(*listado, carpeta, plegado(pedido)).isEmpty())
        listado->borrados.insert(pedido);
}
