// SPDX-License-Identifier: MIT
#include "grupos.h"
#include "revisor/informe.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace informe {

namespace {

constexpr qsizetype anchoNumero = 11;

QString renglon(const QString &nombre, qsizetype ancho, const QStringList &numeros)
{
    QString linea = u"  "_s + nombre.leftJustified(ancho);
    for (const QString &numero : numeros)
        linea += numero.rightJustified(anchoNumero);
    return linea + u'\n';
}

QString tabla(const QList<Seccion> &secciones)
{
    if (secciones.isEmpty())
        return {};
    qsizetype ancho = 0;
    for (const Seccion &seccion : secciones)
        ancho = std::max(ancho, legible(seccion.nombre).size());
    QString lineas = u'\n' + renglon({}, ancho, {u"se esperan"_s, u"hay"_s, u"buenos"_s});
    for (const Seccion &seccion : secciones)
        lineas += renglon(legible(seccion.nombre), ancho,
                          {QString::number(seccion.esperados), QString::number(seccion.hay),
                           QString::number(seccion.buenos)});
    return lineas;
}

QString lugarDe(const Hallazgo &hallazgo)
{
    QStringList partes;
    if (!hallazgo.archivo.isEmpty())
        partes.append(legible(hallazgo.archivo));
    if (const QString detalle = enUnRenglon(hallazgo); !detalle.isEmpty())
        partes.append(detalle);
    return partes.join(u"; "_s);
}

QString deUno(const Hallazgo &hallazgo)
{
    const QString lugar = lugarDe(hallazgo);
    return u"      - "_s + hallazgo.regla->texto.toString()
           + (lugar.isEmpty() ? QString() : u"\n        "_s + lugar) + u"\n        "_s
           + hallazgo.regla->queHacer.toString() + u'\n';
}

QString lineasDeFaltas(const Resultado &resultado)
{
    QString lineas;
    for (const DeSalon &salon : porSalon(resultado)) {
        lineas +=
            u"\n  "_s
            + (salon.nombre.isEmpty() ? u"De todo el histórico"_s : u"Salón "_s + salon.nombre)
            + u'\n';
        for (const DePersona &persona : salon.personas) {
            if (!persona.nombre.isEmpty())
                lineas += u"    "_s + persona.nombre + u'\n';
            for (const Hallazgo *hallazgo : persona.hallazgos)
                lineas += deUno(*hallazgo);
        }
    }
    return lineas;
}

QString lineasDeNotas(const Resultado &resultado)
{
    const std::vector<DeRegla> grupos = notas(resultado);
    QString lineas = grupos.empty() ? QString() : u"\n  Notas\n"_s;
    for (const DeRegla &grupo : grupos) {
        lineas += u"      - "_s + grupo.regla->texto.toString() + u"\n        "_s
                  + grupo.regla->queHacer.toString() + u'\n';
        for (const Hallazgo *hallazgo : grupo.hallazgos) {
            if (const QString lugar = lugarDe(*hallazgo); !lugar.isEmpty())
                lineas += u"        "_s + lugar + u'\n';
        }
    }
    return lineas;
}

QString medidas(const Resultado &resultado)
{
    const QString cuando = descargado(resultado);
    return u"  Fotos: %1. Archivos: %2, %3.\n"_s.arg(resultado.fotos)
               .arg(resultado.archivos)
               .arg(QLocale(QLocale::Spanish)
                        .formattedDataSize(resultado.bytes, 1, QLocale::DataSizeTraditionalFormat))
           + (cuando.isEmpty() ? QString() : u"  Descargado: %1.\n"_s.arg(cuando));
}

} // namespace

QString enTexto(const Resultado &resultado)
{
    const QString carpeta =
        QString::fromUtf8(reinterpret_cast<const char *>(resultado.carpeta.u8string().c_str()));
    const QString cabeza =
        u"%1: %2\n  %3\n"_s.arg(legible(resultado.nombre.isEmpty() ? carpeta : resultado.nombre),
                                titulo(resultado), explicacion(resultado));
    if (resultado.veredicto != Veredicto::Completo
        && resultado.veredicto != Veredicto::FaltanDocumentos)
        return cabeza + u"  Carpeta: "_s + legible(carpeta) + u'\n';
    return cabeza + u"  Carpeta: "_s + legible(carpeta) + u'\n' + medidas(resultado)
           + tabla(resultado.secciones) + lineasDeFaltas(resultado) + lineasDeNotas(resultado);
}

} // namespace informe
