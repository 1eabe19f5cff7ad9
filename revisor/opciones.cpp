// SPDX-License-Identifier: MIT
#include "opciones.h"

#include <QCommandLineParser>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace consola {

namespace {

// The parser knows texts only. Each byte is one character to it, so that all come back as they are:
// those of a path's own name, or UTF-8 where names are wide, which is what a path makes of these.
std::filesystem::path ruta(const QString &letras)
{
    const QByteArray bytes = letras.toLatin1();
    return {std::u8string(bytes.begin(), bytes.end())};
}

QString legible(const QString &letras)
{
    return QString::fromUtf8(letras.toLatin1());
}

void poner(QCommandLineParser &partes)
{
    partes.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const QString &nombre :
         {u"texto"_s, u"json"_s, u"reemplazar"_s, u"ayuda"_s, u"help"_s, u"version"_s})
        static_cast<void>(partes.addOption(QCommandLineOption(nombre))); // no name comes twice
    for (const QString &nombre : {u"html"_s, u"copia"_s, u"comprobar"_s})
        static_cast<void>(partes.addOption(QCommandLineOption(nombre, {}, u"RUTA"_s)));
}

Orden malUso(const QString &motivo)
{
    return MalUso{.motivo = motivo};
}

// Of the options that exclude each other, how many are there; one given twice is two.
qsizetype cuantas(const QCommandLineParser &partes, const QStringList &nombres)
{
    const QStringList dadas = partes.optionNames();
    return std::count_if(dadas.begin(), dadas.end(),
                         [&](const QString &dada) { return nombres.contains(dada); });
}

Orden copiar(const QCommandLineParser &partes)
{
    if (partes.positionalArguments().size() != 1)
        return malUso(u"--copia guarda una sola carpeta."_s);
    return Copiar{.carpeta = ruta(partes.positionalArguments().first()),
                  .destino = ruta(partes.value(u"copia"_s)),
                  .reemplazar = partes.isSet(u"reemplazar"_s)};
}

Orden comprobar(const QCommandLineParser &partes)
{
    if (!partes.positionalArguments().isEmpty())
        return malUso(u"--comprobar comprueba una sola copia."_s);
    return Comprobar{.ruta = ruta(partes.value(u"comprobar"_s))};
}

Orden revisar(const QCommandLineParser &partes)
{
    if (partes.positionalArguments().isEmpty())
        return malUso(u"Falta la carpeta del histórico."_s);
    Revisar orden;
    for (const QString &carpeta : partes.positionalArguments())
        orden.carpetas.push_back(ruta(carpeta));
    if (partes.isSet(u"json"_s))
        orden.forma = Revisar::Forma::Json;
    if (partes.isSet(u"html"_s)) {
        orden.forma = Revisar::Forma::Html;
        orden.html = ruta(partes.value(u"html"_s));
    }
    return orden;
}

} // namespace

Orden leer(const std::vector<std::string> &argumentos)
{
    QStringList letras = {u"parvanel-revisor"_s}; // the parser passes over the first
    for (const std::string &argumento : argumentos)
        letras.append(QString::fromLatin1(argumento));
    QCommandLineParser partes;
    poner(partes);
    if (!partes.parse(letras)) {
        const QStringList otras = partes.unknownOptionNames();
        return malUso(otras.isEmpty() ? u"Falta el nombre que sigue a una opción, o sobra uno."_s
                                      : u"No hay opción --%1."_s.arg(legible(otras.first())));
    }
    if (partes.isSet(u"ayuda"_s) || partes.isSet(u"help"_s))
        return Ayuda{};
    if (partes.isSet(u"version"_s))
        return Version{};
    if (cuantas(partes, {u"texto"_s, u"json"_s, u"html"_s, u"copia"_s, u"comprobar"_s}) > 1)
        return malUso(u"De --texto, --json, --html, --copia y --comprobar solo puede ir una."_s);
    if (partes.isSet(u"reemplazar"_s) && !partes.isSet(u"copia"_s))
        return malUso(u"--reemplazar solo va con --copia."_s);
    if (partes.isSet(u"copia"_s))
        return copiar(partes);
    return partes.isSet(u"comprobar"_s) ? comprobar(partes) : revisar(partes);
}

QString ayuda()
{
    return uR"(Revisor de Históricos: dice si un histórico está completo. Solo lee.

  parvanel-revisor                         abre la ventana
  parvanel-revisor [--texto | --json | --html ARCHIVO] CARPETA...
  parvanel-revisor --copia ARCHIVO [--reemplazar] CARPETA
  parvanel-revisor --comprobar ARCHIVO|CARPETA

  --texto            el informe en palabras (si no se dice otra cosa)
  --json             el informe para programas
  --html ARCHIVO     el informe en una página, que se guarda en ARCHIVO
  --copia ARCHIVO    guarda el histórico en un ZIP que se puede comprobar
  --reemplazar       aunque ya exista ARCHIVO
  --comprobar RUTA   dice si una copia, o la carpeta que se sacó de ella,
                     está como se guardó
  --ayuda, --help    esto
  --version          la versión

Termina con 0 si todo está bien; 1 si falta, cambió o está dañado algo; 2 si no
se puede leer o guardar, o no es un histórico ni una copia; 64 si no se entiende
lo pedido. De varias carpetas cuenta la peor.
)"_s;
}

} // namespace consola
