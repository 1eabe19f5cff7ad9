// SPDX-License-Identifier: MIT
#include "grupos.h"
#include "revisor/informe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace informe {

namespace {

constexpr int version = 1;

QString palabra(Veredicto veredicto)
{
    switch (veredicto) {
    case Veredicto::Completo:
        return u"completo"_s;
    case Veredicto::FaltanDocumentos:
        return u"faltan-documentos"_s;
    case Veredicto::NoEsHistorico:
        return u"no-es-historico"_s;
    case Veredicto::NoSeLee:
        return u"no-se-lee"_s;
    case Veredicto::Detenida:
        return u"detenida"_s;
    }
    return {};
}

QString palabra(Gravedad gravedad)
{
    switch (gravedad) {
    case Gravedad::Falta:
        return u"falta"_s;
    case Gravedad::Danio:
        return u"danio"_s;
    case Gravedad::Nota:
        return u"nota"_s;
    }
    return {};
}

QJsonValue momento(const QDateTime &cuando)
{
    return cuando.isValid() ? QJsonValue(cuando.toUTC().toString(Qt::ISODate)) : QJsonValue();
}

QJsonArray listaDeSecciones(const Resultado &resultado)
{
    QJsonArray lista;
    for (const Seccion &seccion : resultado.secciones)
        lista.append(QJsonObject{{u"nombre"_s, seccion.nombre},
                                 {u"carpeta"_s, seccion.carpeta},
                                 {u"esperados"_s, seccion.esperados},
                                 {u"hay"_s, seccion.hay},
                                 {u"buenos"_s, seccion.buenos}});
    return lista;
}

QJsonArray hallazgos(const Resultado &resultado)
{
    QJsonArray lista;
    for (const Hallazgo &hallazgo : resultado.hallazgos)
        lista.append(QJsonObject{{u"regla"_s, hallazgo.regla->nombre.toString()},
                                 {u"gravedad"_s, palabra(hallazgo.regla->gravedad)},
                                 {u"texto"_s, hallazgo.regla->texto.toString()},
                                 {u"queHacer"_s, hallazgo.regla->queHacer.toString()},
                                 {u"archivo"_s, hallazgo.archivo},
                                 {u"idPersona"_s, hallazgo.idPersona},
                                 {u"persona"_s, hallazgo.persona},
                                 {u"idSalon"_s, hallazgo.idSalon},
                                 {u"salon"_s, hallazgo.salon},
                                 {u"detalle"_s, hallazgo.detalle},
                                 {u"veces"_s, hallazgo.veces}});
    return lista;
}

QJsonObject historico(const Resultado &resultado)
{
    return {{u"carpeta"_s, carpetaDe(resultado)},
            {u"nombre"_s, resultado.nombre},
            {u"veredicto"_s, palabra(resultado.veredicto)},
            {u"explicacion"_s, explicacion(resultado)},
            {u"faltas"_s, resultado.cuantos(Gravedad::Falta)},
            {u"danios"_s, resultado.cuantos(Gravedad::Danio)},
            {u"notas"_s, resultado.cuantos(Gravedad::Nota)},
            {u"personas"_s, resultado.personas},
            {u"personasConFaltas"_s, resultado.personasConFaltas},
            {u"salones"_s, resultado.salones},
            {u"salonesConFaltas"_s, resultado.salonesConFaltas},
            {u"fotos"_s, resultado.fotos},
            {u"archivos"_s, resultado.archivos},
            {u"bytes"_s, resultado.bytes},
            {u"desde"_s, momento(resultado.desde)},
            {u"hasta"_s, momento(resultado.hasta)},
            {u"fechasUtiles"_s, resultado.fechasUtiles},
            {u"secciones"_s, listaDeSecciones(resultado)},
            {u"hallazgos"_s, hallazgos(resultado)}};
}

} // namespace

QByteArray enJson(const QList<Resultado> &resultados, const Sello &sello)
{
    QJsonArray lista;
    for (const Resultado &resultado : resultados)
        lista.append(historico(resultado));
    return QJsonDocument(QJsonObject{{u"formato"_s, u"parvanel-revisor"_s},
                                     {u"version"_s, version},
                                     {u"programa"_s, sello.programa},
                                     {u"cuando"_s, momento(sello.cuando)},
                                     {u"historicos"_s, lista}})
        .toJson(QJsonDocument::Indented);
}

} // namespace informe
