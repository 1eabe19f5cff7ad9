// SPDX-License-Identifier: MIT
#include "bolsa.h"

#include <QList>

#include <algorithm>

namespace bolsa {

namespace {

constexpr qsizetype letrasSuma = 64; // two for each of the 32 bytes

bool esHex(char letra)
{
    return (letra >= '0' && letra <= '9') || (letra >= 'a' && letra <= 'f')
           || (letra >= 'A' && letra <= 'F');
}

QByteArray codificado(QByteArray nombre)
{
    return nombre.replace('%', "%25").replace('\n', "%0A").replace('\r', "%0D");
}

// Only the three that are ever encoded: a "%41" was never written by anybody who kept the rule.
QByteArray decodificado(QByteArray nombre)
{
    nombre.replace("%0A", "\n").replace("%0a", "\n").replace("%0D", "\r").replace("%0d", "\r");
    return nombre.replace("%25", "%");
}

bool leerLinea(const QByteArray &linea, Sumas &sumas)
{
    const QByteArray suma = linea.left(letrasSuma);
    if (suma.size() < letrasSuma || !std::all_of(suma.begin(), suma.end(), esHex))
        return false;
    qsizetype lugar = letrasSuma;
    while (lugar < linea.size() && (linea.at(lugar) == ' ' || linea.at(lugar) == '\t'))
        ++lugar;
    // What tools that compute sums put before a name that they read as bytes.
    if (lugar > letrasSuma && lugar < linea.size() && linea.at(lugar) == '*')
        ++lugar;
    const QByteArray nombre = decodificado(linea.mid(lugar));
    return lugar > letrasSuma && esSegura(nombre)
           && sumas.emplace(nombre, QByteArray::fromHex(suma)).second;
}

QByteArray enUnaLinea(QByteArray texto)
{
    return texto.replace('\r', ' ').replace('\n', ' ');
}

} // namespace

QByteArray escribir(const Sumas &sumas)
{
    QByteArray texto;
    for (const auto &[nombre, suma] : sumas)
        texto += suma.toHex() + "  " + codificado(nombre) + '\n';
    return texto;
}

std::optional<Sumas> leer(const QByteArray &manifiesto)
{
    QByteArray texto = manifiesto;
    texto.replace("\r\n", "\n").replace('\r', '\n');
    Sumas sumas;
    for (const QByteArray &linea : texto.split('\n')) {
        if (!linea.isEmpty() && !leerLinea(linea, sumas))
            return std::nullopt;
    }
    return sumas;
}

bool esSegura(const QByteArray &nombre)
{
    if (nombre.contains('\\') || nombre.contains('\0'))
        return false;
    if (nombre.size() > 1 && nombre.at(1) == ':')
        return false;
    const QList<QByteArray> partes = nombre.split('/');
    return std::none_of(partes.begin(), partes.end(), [](const QByteArray &parte) {
        return parte.isEmpty() || parte == "." || parte == "..";
    });
}

QByteArray textoDeclaracion()
{
    return "BagIt-Version: 1.0\nTag-File-Character-Encoding: UTF-8\n";
}

QByteArray textoDatos(const Ficha &ficha)
{
    return "Bag-Software-Agent: " + enUnaLinea(ficha.programa)
           + "\nBagging-Date: " + ficha.fecha.toString(Qt::ISODate).toUtf8()
           + "\nExternal-Identifier: " + enUnaLinea(ficha.historico) + "\nPayload-Oxum: "
           + QByteArray::number(ficha.bytes) + '.' + QByteArray::number(ficha.archivos) + '\n';
}

QByteArray textoLeame(const QByteArray &historico)
{
    // The mark at its beginning and the line ends are for the plainest editor of an old Windows.
    QByteArray texto =
        "\xEF\xBB\xBF"
        "COPIA DEL HISTÓRICO "
        + enUnaLinea(historico)
        + "\n"
          "\n"
          "Para ver los documentos: saque (extraiga) todo el contenido del ZIP en una\n"
          "carpeta y abra con el navegador el archivo\n"
          "\n"
          "    data/index.html\n"
          "\n"
          "Para saber si la copia está como se guardó: con el Revisor de Históricos,\n"
          "\"Comprobar copia\", o en una consola, dentro de esta carpeta,\n"
          "\n"
          "    sha256sum -c manifest-sha256.txt\n"
          "\n"
          "No cambie, borre ni agregue archivos aquí: la copia dejaría de ser fiel.\n";
    return texto.replace('\n', "\r\n");
}

} // namespace bolsa
