// SPDX-License-Identifier: MIT
#include "proxyDeWindows.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace proxyDeWindows {
namespace {

struct Lugar {
    QString protocolo; // "https"
    QString servidor;  // without the brackets of a numeric one
    QString puerto;
};

// "[scheme://]host[:port][/...]"; what is not there is empty.
Lugar separado(QString texto)
{
    Lugar lugar;
    const qsizetype autoridad = texto.indexOf("://"_L1);
    if (autoridad >= 0) {
        lugar.protocolo = texto.left(autoridad).toLower();
        texto.remove(0, autoridad + 3);
    }
    texto = texto.left(texto.indexOf(QRegularExpression(u"[/?#]"_s)));
    texto.remove(0, texto.lastIndexOf(u'@') + 1);
    const qsizetype corchete = texto.indexOf(u']');
    // More than one colon, and no bracket: an address of figures without a port.
    const bool sinPuerto = corchete < 0 && texto.count(u':') > 1;
    const qsizetype dosPuntos =
        sinPuerto ? -1 : texto.indexOf(u':', std::max<qsizetype>(corchete, 0));
    if (dosPuntos >= 0)
        lugar.puerto = texto.mid(dosPuntos + 1);
    lugar.servidor = texto.left(dosPuntos).toLower().remove(u'[').remove(u']');
    return lugar;
}

Lugar separado(const QByteArray &direccion)
{
    Lugar lugar = separado(QString::fromUtf8(direccion));
    if (lugar.puerto.isEmpty())
        lugar.puerto = lugar.protocolo == "https"_L1 ? u"443"_s : u"80"_s;
    return lugar;
}

QStringList palabras(const QString &lista)
{
    return lista.split(QRegularExpression(u"[;,\\s]+"_s), Qt::SkipEmptyParts);
}

bool enFiguras(const QString &servidor)
{
    const auto deCuatro = [](QChar letra) {
        return letra == u'.' || letra.isDigit();
    };
    return servidor.contains(u':') || std::all_of(servidor.begin(), servidor.end(), deCuatro);
}

// "*" stands for any letters, every other sign for itself.
bool concuerda(const QString &modelo, const QString &texto)
{
    QString expresion = QRegularExpression::escape(modelo);
    expresion.replace("\\*"_L1, ".*"_L1);
    return QRegularExpression(QRegularExpression::anchoredPattern(expresion))
        .match(texto)
        .hasMatch();
}

bool exceptua(const QString &palabra, const Lugar &lugar)
{
    if (palabra.compare("<local>"_L1, Qt::CaseInsensitive) == 0)
        return !lugar.servidor.contains(u'.') && !enFiguras(lugar.servidor);
    const Lugar modelo = separado(palabra);
    return (modelo.protocolo.isEmpty() || modelo.protocolo == lugar.protocolo)
           && (modelo.puerto.isEmpty() || modelo.puerto == lugar.puerto)
           && concuerda(modelo.servidor, lugar.servidor);
}

bool exceptua(const QStringList &salvo, const Lugar &lugar)
{
    return std::any_of(salvo.begin(), salvo.end(),
                       [&](const QString &palabra) { return exceptua(palabra, lugar); });
}

// A proxy without a kind is asked in plain HTTP, and without a port at the kind's own.
QByteArray escrito(const QString &proxy, const QString &clase)
{
    const Lugar lugar = separado(proxy);
    if (lugar.servidor.isEmpty())
        return {};
    const QString protocolo = lugar.protocolo.isEmpty() ? clase : lugar.protocolo;
    QString puerto = lugar.puerto;
    if (puerto.isEmpty())
        puerto = protocolo.startsWith("socks"_L1) ? u"1080"_s
                 : protocolo == "https"_L1        ? u"443"_s
                                                  : u"80"_s;
    const QString servidor =
        lugar.servidor.contains(u':') ? u'[' + lugar.servidor + u']' : lugar.servidor;
    return (protocolo + "://"_L1 + servidor + u':' + puerto).toUtf8();
}

// The one without a name is for all addresses, one with a name for those of that protocol; what
// has none of either goes by the one for sockets, whose protocol is the old one.
QByteArray elegido(const QStringList &proxies, const QString &protocolo)
{
    QByteArray paraTodas;
    QByteArray porZocalos;
    for (const QString &proxy : proxies) {
        const qsizetype igual = proxy.indexOf(u'=');
        const QString clase = proxy.left(std::max<qsizetype>(igual, 0)).toLower();
        if (clase == protocolo)
            return escrito(proxy.mid(igual + 1), u"http"_s);
        if (igual < 0 && paraTodas.isEmpty())
            paraTodas = escrito(proxy, u"http"_s);
        if (clase == "socks"_L1 && porZocalos.isEmpty())
            porZocalos = escrito(proxy.mid(igual + 1), u"socks4"_s);
    }
    return paraTodas.isEmpty() ? porZocalos : paraTodas;
}

bool esDeAqui(const Lugar &lugar, const QStringList &salvo)
{
    if (salvo.contains("<-loopback>"_L1, Qt::CaseInsensitive))
        return false;
    const QString &servidor = lugar.servidor;
    const bool numerica = enFiguras(servidor);
    return servidor == "localhost"_L1 || servidor.endsWith(".localhost"_L1)
           || servidor == "loopback"_L1 || servidor == "::1"_L1
           || (numerica && (servidor.startsWith("127."_L1) || servidor.startsWith("169.254."_L1)))
           || (numerica && servidor.startsWith("fe80:"_L1));
}

} // namespace

QByteArray proxyPara(const QByteArray &direccion, const QString &lista, const QString &salvo)
{
    const Lugar lugar = separado(direccion);
    const QStringList sinProxy = palabras(salvo);
    if (esDeAqui(lugar, sinProxy) || exceptua(sinProxy, lugar))
        return {};
    return elegido(palabras(lista), lugar.protocolo);
}

bool esDeAqui(const QByteArray &direccion, const QString &salvo)
{
    return esDeAqui(separado(direccion), palabras(salvo));
}

} // namespace proxyDeWindows
