// SPDX-License-Identifier: MIT
#include "direccion.h"
#include "platform/codepage.h"

#include <QStringDecoder>

#include <algorithm>
#include <cctype>

using namespace Qt::StringLiterals;

namespace {

// Browsers drop blanks at both ends, and tabs and line ends wherever they stand.
QByteArray limpia(std::string_view escrita)
{
    QByteArray resultado;
    resultado.reserve(static_cast<qsizetype>(escrita.size()));
    for (const char c : escrita) {
        if (c != '\t' && c != '\n' && c != '\r')
            resultado.append(c);
    }
    const auto esControl = [](char c) {
        return static_cast<unsigned char>(c) <= ' ';
    };
    while (!resultado.isEmpty() && esControl(resultado.back()))
        resultado.chop(1);
    qsizetype inicio = 0;
    while (inicio < resultado.size() && esControl(resultado[inicio]))
        ++inicio;
    return resultado.mid(inicio);
}

// The length of "http", 0 when the address names no scheme.
qsizetype largoDeEsquema(const QByteArray &direccion)
{
    if (direccion.isEmpty() || std::isalpha(static_cast<unsigned char>(direccion[0])) == 0)
        return 0;
    for (qsizetype i = 1; i < direccion.size(); ++i) {
        const char c = direccion[i];
        if (c == ':')
            return i;
        if (std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '+' && c != '-' && c != '.')
            return 0;
    }
    return 0;
}

bool esSeparador(char c)
{
    return c == '/' || c == '\\';
}

QString decodificado(const QByteArray &nombre, bool &deWindows)
{
    if (!nombre.contains('%'))
        return QString::fromUtf8(nombre);
    const QByteArray bytes = QByteArray::fromPercentEncoding(nombre);
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString texto = utf8(bytes);
    if (!utf8.hasError())
        return texto;
    deWindows = true;
    return codepage::aTexto(bytes);
}

void bajarPor(const QByteArray &ruta, Direccion &direccion)
{
    qsizetype desde = 0;
    for (;;) {
        const auto *const fin = std::find_if(ruta.begin() + desde, ruta.end(), esSeparador);
        const qsizetype hasta = fin - ruta.begin();
        const QString nombre = decodificado(ruta.sliced(desde, hasta - desde), direccion.deWindows);
        const bool ultimo = hasta == ruta.size();
        if (nombre == u"..") {
            if (direccion.nombres.isEmpty())
                ++direccion.arriba;
            else
                direccion.nombres.removeLast();
        } else if (nombre != u"." && !nombre.isEmpty()) {
            direccion.nombres.append(nombre);
        }
        if (ultimo) {
            if (nombre.isEmpty() || nombre == u"." || nombre == u"..")
                direccion.nombres.append(QString());
            return;
        }
        desde = hasta + 1;
    }
}

} // namespace

Direccion leerDireccion(std::string_view escrita, const QStringList &carpeta)
{
    QByteArray direccion = limpia(escrita);
    if (const qsizetype esquema = largoDeEsquema(direccion); esquema > 0) {
        const QByteArray nombre = direccion.first(esquema).toLower();
        if (nombre == "http" || nombre == "https")
            return {.clase = Direccion::EnLaRed, .completa = QString::fromUtf8(direccion)};
        // "c:" is no scheme that a browser knows, and means this computer's disk.
        const bool deDisco = nombre == "file" || nombre.size() == 1;
        return {.clase = deDisco ? Direccion::Fuera : Direccion::Nada,
                .completa = QString::fromUtf8(direccion)};
    }
    const auto *const fin = std::find_if(direccion.cbegin(), direccion.cend(),
                                         [](char c) { return c == '?' || c == '#'; });
    direccion.truncate(fin - direccion.cbegin());
    if (direccion.isEmpty())
        return {};
    if (esSeparador(direccion[0]))
        return {.clase = Direccion::Fuera, .completa = QString::fromUtf8(direccion)};
    Direccion resultado{.clase = Direccion::Relativa, .nombres = carpeta};
    bajarPor(direccion, resultado);
    return resultado;
}
