// SPDX-License-Identifier: MIT
#include "texto.h"
#include "platform/nombresNativos.h"
#include "platform/recorrido.h"

#include <fstream>
#include <string>
#include <type_traits>

namespace texto {
namespace {

// Names are wide where they are no bytes, and "\\" separates them there.
template <typename Letra>
QString deNativo(const std::basic_string<Letra> &nombre)
{
    if constexpr (std::is_same_v<Letra, wchar_t>)
        return QString::fromStdWString(nombre).replace(u'\\', u'/');
    else
        return QString::fromUtf8(nombre);
}

} // namespace

QString deRuta(const std::filesystem::path &ruta)
{
    return deNativo(ruta.native());
}

QString clave(const QString &nombre)
{
    return nombresNativos::plegado(nombre.normalized(QString::NormalizationForm_C));
}

std::optional<QByteArray> leer(const std::filesystem::path &ruta, qint64 maximo)
{
    std::ifstream archivo;
    archivo.rdbuf()->pubsetbuf(nullptr, 0);
    archivo.open(recorrido::paraAbrir(ruta), std::ios::binary | std::ios::ate);
    if (!archivo)
        return std::nullopt;
    const auto largo = static_cast<qint64>(archivo.tellg());
    if (largo < 0 || largo > maximo)
        return std::nullopt;
    QByteArray contenido(largo, Qt::Uninitialized);
    archivo.seekg(0);
    archivo.read(contenido.data(), largo);
    // Shorter when it was cut meanwhile.
    contenido.truncate(archivo.gcount());
    if (archivo.bad())
        return std::nullopt;
    return contenido;
}

} // namespace texto
