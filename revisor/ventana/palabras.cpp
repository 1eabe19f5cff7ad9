// SPDX-License-Identifier: MIT
#include "palabras.h"
#include "revisor/informe.h"

#include <QLocale>

using namespace Qt::StringLiterals;

QString conPuntos(qint64 numero)
{
    return QLocale(QLocale::Spanish).toString(numero);
}

namespace {

QString contados(int cuantos, const QString &uno, const QString &varios)
{
    return cuantos == 1 ? u"1 "_s + uno : conPuntos(cuantos) + u' ' + varios;
}

QString resumenDe(const Resultado &resultado)
{
    const QString medida =
        QLocale(QLocale::Spanish)
            .formattedDataSize(resultado.bytes, 1, QLocale::DataSizeTraditionalFormat);
    QStringList partes{contados(resultado.archivos, u"archivo"_s, u"archivos"_s),
                       contados(resultado.fotos, u"foto"_s, u"fotos"_s), medida};
    QString resumen = partes.join(u", "_s) + u'.';
    const QString descargado = informe::descargado(resultado);
    if (!descargado.isEmpty())
        resumen += u"\nDescargado: "_s + descargado + u'.';
    return resumen;
}

const char16_t *dibujoDe(Veredicto veredicto)
{
    switch (veredicto) {
    case Veredicto::Completo:
        return u"completo";
    case Veredicto::FaltanDocumentos:
        return u"faltan";
    case Veredicto::NoEsHistorico:
    case Veredicto::NoSeLee:
        return u"ajeno";
    case Veredicto::Detenida:
        break;
    }
    return u"pregunta";
}

QString tituloDe(copia::Comprobacion::Veredicto veredicto)
{
    switch (veredicto) {
    case copia::Comprobacion::Veredicto::Intacta:
        return u"La copia está intacta"_s;
    case copia::Comprobacion::Veredicto::Distinta:
        return u"La copia cambió"_s;
    case copia::Comprobacion::Veredicto::NoEsCopia:
        return u"No es una copia"_s;
    case copia::Comprobacion::Veredicto::NoSeLee:
        return u"No se puede leer"_s;
    case copia::Comprobacion::Veredicto::Detenida:
        return u"Comprobación detenida"_s;
    }
    return {};
}

const char16_t *dibujoDe(copia::Comprobacion::Veredicto veredicto)
{
    switch (veredicto) {
    case copia::Comprobacion::Veredicto::Intacta:
        return u"completo";
    case copia::Comprobacion::Veredicto::Distinta:
        return u"faltan";
    case copia::Comprobacion::Veredicto::NoEsCopia:
    case copia::Comprobacion::Veredicto::NoSeLee:
        return u"ajeno";
    case copia::Comprobacion::Veredicto::Detenida:
        break;
    }
    return u"pregunta";
}

} // namespace

Palabras palabrasDe(const Resultado &resultado, const QString &nombre)
{
    const bool esHistorico = resultado.veredicto == Veredicto::Completo
                             || resultado.veredicto == Veredicto::FaltanDocumentos;
    return {.dibujo = dibujoDe(resultado.veredicto),
            .veredicto = informe::titulo(resultado),
            .frase = informe::explicacion(resultado),
            .resumen = esHistorico ? nombre + u'\n' + resumenDe(resultado) : nombre};
}

Palabras palabrasDe(const copia::Comprobacion &comprobacion, const QString &nombre)
{
    return {.dibujo = dibujoDe(comprobacion.veredicto),
            .veredicto = tituloDe(comprobacion.veredicto),
            .frase = informe::legible(comprobacion.texto),
            .resumen = nombre};
}
