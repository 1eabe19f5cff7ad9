// SPDX-License-Identifier: MIT
#include "platform/rutaWindows.h"
#include "platform/nombresNativos.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace rutaWindows {
namespace {

bool esSeparador(QChar c)
{
    return c == u'\\' || c == u'/';
}

QString sinColaDeBlancosYPuntos(QString nombre)
{
    while (nombre.endsWith(u' ') || nombre.endsWith(u'.'))
        nombre.chop(1);
    return nombre;
}

} // namespace

bool enUnidadC(const QString &ruta)
{
    return ruta.size() >= 3 && (ruta[0] == u'C' || ruta[0] == u'c') && ruta[1] == u':'
           && esSeparador(ruta[2]);
}

std::optional<Lugar> lugarEn(const QString &raiz, const QString &ruta)
{
    auto hallados = nombres(ruta);
    if (!hallados || hallados->isEmpty()
        || nombresNativos::plegado(hallados->first()) != nombresNativos::plegado(raiz))
        return std::nullopt;
    Lugar lugar;
    lugar.esRaiz = hallados->size() == 1;
    lugar.nombre = hallados->takeLast();
    lugar.carpeta = hallados->mid(1);
    return lugar;
}

QStringList listado(const QString &carpeta, QStringList nombres)
{
    std::sort(nombres.begin(), nombres.end(), [](const QString &a, const QString &b) {
        const int orden = nombresNativos::plegado(a).compare(nombresNativos::plegado(b));
        return orden != 0 ? orden < 0 : a < b;
    });
    const QChar separador = enUnidadC(carpeta) ? u'\\' : u'/';
    QString prefijo = carpeta;
    if (!prefijo.endsWith(separador))
        prefijo += separador;
    for (QString &nombre : nombres)
        nombre.prepend(prefijo);
    return nombres;
}

std::optional<EnLista> comoEnLista(const QString &ruta)
{
    static const QRegularExpression partes(u"\\A([^\\\\/]+)[\\\\/]([^/]+)/(.*)\\z"_s,
                                           QRegularExpression::DotMatchesEverythingOption);
    const auto hallado = enUnidadC(ruta) ? partes.match(ruta.mid(3)) : QRegularExpressionMatch();
    if (!hallado.hasMatch())
        return std::nullopt;
    const QString carpeta = hallado.captured(2);
    const auto resto = nombres(ruta.first(3) + hallado.captured(3));
    if (!resto || carpeta == u"." || carpeta == u"..")
        return std::nullopt;
    return EnLista{hallado.captured(1), carpeta, *resto};
}

bool terminaEnSeparador(const QString &ruta)
{
    return !ruta.isEmpty() && esSeparador(ruta.back());
}

bool nombreRefusado(const QString &nombre)
{
    static const QRegularExpression prohibidos(u"[<>:\"|?*\\x00-\\x1f]"_s);
    static const QRegularExpression dispositivo(u"^(con|prn|aux|nul|com[1-9]|lpt[1-9]) *(\\.|$)"_s,
                                                QRegularExpression::CaseInsensitiveOption);
    return nombre.isEmpty() || nombre.contains(prohibidos) || nombre.contains(dispositivo);
}

std::optional<QStringList> nombres(const QString &ruta)
{
    if (!enUnidadC(ruta))
        return std::nullopt;
    static const QRegularExpression separadores(u"[\\\\/]+"_s);
    QStringList resultado;
    const QStringList trozos = ruta.mid(3).split(separadores, Qt::SkipEmptyParts);
    for (const QString &trozo : trozos) {
        if (trozo == u".")
            continue;
        if (trozo == u"..") {
            if (!resultado.isEmpty())
                resultado.removeLast();
            continue;
        }
        const QString nombre = sinColaDeBlancosYPuntos(trozo);
        if (nombreRefusado(nombre))
            return std::nullopt;
        resultado.append(nombre);
    }
    return resultado;
}

} // namespace rutaWindows
