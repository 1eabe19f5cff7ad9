// SPDX-License-Identifier: MIT
#include "platform/rutaWindows.h"
#include "platform/nombresNativos.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace rutaWindows {
namespace {

constexpr auto tomadaComoEsta = "\\\\?\\"_L1; // what follows is taken as it is
constexpr auto deUnServidor = "\\\\?\\UNC\\"_L1;
constexpr auto deUnAparato = "\\\\.\\"_L1;
constexpr auto servidor = "\\\\"_L1;

bool esSeparador(QChar c)
{
    return c == u'\\' || c == u'/';
}

bool esProhibida(QChar c)
{
    constexpr std::u16string_view prohibidas = u"<>:\"|?*";
    return c.unicode() < 0x20
           || (c.unicode() < 0x80 && prohibidas.find(c.unicode()) != prohibidas.npos);
}

QStringView sinColaDeBlancosYPuntos(QStringView nombre)
{
    while (nombre.endsWith(u' ') || nombre.endsWith(u'.'))
        nombre.chop(1);
    return nombre;
}

// What stands before the first separator, which it takes off with that; it may be nothing.
QStringView tomarTrozo(QStringView &ruta)
{
    const qsizetype largo = std::find_if(ruta.begin(), ruta.end(), esSeparador) - ruta.begin();
    const QStringView trozo = ruta.first(largo);
    ruta = ruta.sliced(std::min(largo + 1, ruta.size()));
    return trozo;
}

// "con", "LPT1.txt", "nul .html": the part before the first dot, without the blanks at its end.
bool esDispositivo(const QString &nombre)
{
    QStringView propio =
        QStringView(nombre).first(std::find(nombre.begin(), nombre.end(), u'.') - nombre.begin());
    while (propio.endsWith(u' '))
        propio.chop(1);
    const auto es = [&](QStringView dispositivo) {
        return propio.compare(dispositivo, Qt::CaseInsensitive) == 0;
    };
    constexpr std::array<QStringView, 4> solos = {u"con", u"prn", u"aux", u"nul"};
    if (propio.size() == 3)
        return std::any_of(solos.begin(), solos.end(), es);
    const bool numerado = propio.size() == 4 && propio[3] >= u'1' && propio[3] <= u'9';
    propio = propio.left(3);
    return numerado && (es(u"com") || es(u"lpt"));
}

} // namespace

QString sinLimite(const QString &ruta)
{
    QString nativa = QString(ruta).replace(u'/', u'\\');
    if (nativa.startsWith(tomadaComoEsta) || nativa.startsWith(deUnAparato))
        return nativa;
    return nativa.startsWith(servidor) ? deUnServidor + nativa.mid(servidor.size())
                                       : tomadaComoEsta + nativa;
}

QString conLimite(const QString &ruta)
{
    QString nativa = QString(ruta).replace(u'/', u'\\');
    if (nativa.startsWith(deUnServidor, Qt::CaseInsensitive))
        return servidor + nativa.mid(deUnServidor.size());
    return nativa.startsWith(tomadaComoEsta) ? nativa.mid(tomadaComoEsta.size()) : nativa;
}

bool enUnidadC(const QString &ruta)
{
    return ruta.size() >= 3 && (ruta[0] == u'C' || ruta[0] == u'c') && ruta[1] == u':'
           && esSeparador(ruta[2]);
}

std::optional<Lugar> lugarEn(const QString &raiz, const QString &ruta)
{
    auto hallados = nombres(ruta);
    const auto esRaiz = [&](const QString &nombre) {
        return nombre == raiz || nombresNativos::plegado(nombre) == nombresNativos::plegado(raiz);
    };
    if (!hallados || hallados->isEmpty() || !esRaiz(hallados->first()))
        return std::nullopt;
    Lugar lugar;
    lugar.esRaiz = hallados->size() == 1;
    lugar.nombre = hallados->takeLast();
    lugar.carpeta = hallados->mid(1);
    return lugar;
}

std::optional<Lugar> archivoEn(const QString &raiz, const QString &ruta)
{
    auto lugar = lugarEn(raiz, ruta);
    if (!lugar || lugar->esRaiz || esSeparador(ruta.back()))
        return std::nullopt;
    return lugar;
}

QStringList listado(const QString &carpeta, QStringList nombres)
{
    std::sort(nombres.begin(), nombres.end(), [](const QString &a, const QString &b) {
        const int orden = nombresNativos::plegado(a).compare(nombresNativos::plegado(b));
        return orden != 0 ? orden < 0 : a < b;
    });
    const QChar separador = carpeta.startsWith(u'/') ? u'/' : u'\\';
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

// Asked at every file: names are looked at letter by letter.
bool nombreRefusado(const QString &nombre)
{
    return nombre.isEmpty() || std::any_of(nombre.begin(), nombre.end(), esProhibida)
           || esDispositivo(nombre);
}

std::optional<QStringList> nombres(const QString &ruta)
{
    if (!enUnidadC(ruta))
        return std::nullopt;
    QStringList resultado;
    for (QStringView resto = QStringView(ruta).sliced(3); !resto.isEmpty();) {
        const QStringView trozo = tomarTrozo(resto);
        if (trozo.isEmpty() || trozo == u".")
            continue;
        if (trozo == u"..") {
            if (!resultado.isEmpty())
                resultado.removeLast();
            continue;
        }
        QString nombre = sinColaDeBlancosYPuntos(trozo).toString();
        if (nombreRefusado(nombre))
            return std::nullopt;
        resultado.append(std::move(nombre));
    }
    return resultado;
}

} // namespace rutaWindows
