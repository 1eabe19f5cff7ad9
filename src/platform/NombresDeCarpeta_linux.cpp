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

bool esOtraEscritura(int carpeta, const dirent &entrada, const QString &nombre)
{
    if (entrada.d_type != DT_LNK && entrada.d_type != DT_UNKNOWN)
        return false;
    std::array<char, 1024> destino{};
    const ssize_t largo = ::readlinkat(carpeta, entrada.d_name, destino.data(), destino.size());
    return largo > 0
           && nombresNativos::esOtraEscritura(nombre, QString::fromUtf8(destino.data(), largo));
}

void agregarEscritura(QStringList &escrituras, const QString &nombre)
{
    if (!escrituras.contains(nombre))
        escrituras.append(nombre);
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
    // The folder's own descriptor may be one that names it only and cannot be read.
    Descriptor legible(::openat(carpeta, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, CierraDirectorio> entradas(::fdopendir(legible.numero()));
    if (!entradas)
        return; // it may be entered and not read: names are found in their exact spelling only
    [[maybe_unused]] const int delDirectorio = legible.soltar();
    while (const dirent *entrada = ::readdir(entradas.get())) {
        const QByteArray bytes(entrada->d_name);
        const QString nombre = QString::fromUtf8(bytes);
        // A name that is no text can be asked for by nobody.
        if (bytes == "." || bytes == ".." || enDisco(nombre) != bytes)
            continue;
        if (temporales::procesoDe(nombre))
            listado.temporales.append(nombre);
        else if (!esOtraEscritura(carpeta, *entrada, nombre))
            agregarEscritura(listado.escrituras[plegado(nombre)], nombre);
    }
}

void NombresDeCarpeta::tomarCambio(Listado &listado, int carpeta, const QString &nombre,
                                   Queda queda)
{
    if (queda == Queda::Anotado) {
        agregarEscritura(listado.escrituras[plegado(nombre)], nombre);
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
    const QStringList candidatos =
        nombresNativos::candidatos(listado->escrituras.value(plegado(nombre)), nombre);
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
    if (listado && listado->escrituras.contains(plegado(pedido)))
        listado->borrados.insert(pedido);
}
