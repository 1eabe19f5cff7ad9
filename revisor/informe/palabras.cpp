// SPDX-License-Identifier: MIT
#include "grupos.h"
#include "revisor/informe.h"

#include <QLocale>
#include <QSet>

#include <algorithm>
#include <initializer_list>
#include <utility>

using namespace Qt::StringLiterals;

namespace informe {

namespace {

QString cuenta(int cuantos, const QString &uno, const QString &varios)
{
    return cuantos == 1 ? uno : varios.arg(cuantos);
}

// "Ana, Luis y 3 más": the first few, so that a school sees whom to look for.
QString deQuien(const Resultado &resultado)
{
    constexpr qsizetype losPrimeros = 3;
    QStringList nombres;
    QSet<QString> vistos;
    for (const DeSalon &salon : porSalon(resultado)) {
        for (const DePersona &persona : salon.personas) {
            const Hallazgo &uno = *persona.hallazgos.front();
            const QString &clave = uno.idPersona.isEmpty() ? uno.persona : uno.idPersona;
            if (clave.isEmpty() || vistos.contains(clave))
                continue;
            vistos.insert(clave);
            nombres.append(legible(uno.persona.isEmpty() ? uno.idPersona : uno.persona));
        }
    }
    if (nombres.isEmpty())
        return {};
    const qsizetype demas = nombres.size() - losPrimeros;
    if (demas > 1)
        return u": de %1 y %2 más"_s.arg(nombres.mid(0, losPrimeros).join(u", "_s),
                                         QString::number(demas));
    const QString ultimo = nombres.takeLast();
    return u": de "_s
           + (nombres.isEmpty() ? ultimo : u"%1 y %2"_s.arg(nombres.join(u", "_s), ultimo));
}

QString explicacionFaltas(const Resultado &resultado)
{
    const int faltan = resultado.cuantos(Gravedad::Falta);
    const int danados = resultado.cuantos(Gravedad::Danio);
    const QString falta = cuenta(faltan, u"falta 1 archivo"_s, u"faltan %1 archivos"_s);
    const QString dano = cuenta(danados, u"hay 1 dañado o distinto de lo que debía ser"_s,
                                u"hay %1 dañados o distintos de lo que debían ser"_s);
    QString frase = faltan == 0 ? dano : danados == 0 ? falta : falta + u" y "_s + dano;
    frase[0] = frase.at(0).toUpper();
    return frase + deQuien(resultado) + u'.';
}

QString explicacionCompleto(const Resultado &resultado)
{
    const int cuantas = resultado.cuantos(Gravedad::Nota);
    const QString frase = u"Están todos los documentos y todos se pueden leer."_s;
    return cuantas == 0 ? frase
                        : frase
                              + cuenta(cuantas, u" Hay 1 nota, que no le quita nada."_s,
                                       u" Hay %1 notas, que no le quitan nada."_s);
}

} // namespace

QString titulo(const Resultado &resultado)
{
    switch (resultado.veredicto) {
    case Veredicto::Completo:
        return u"Completo"_s;
    case Veredicto::FaltanDocumentos:
        return u"Faltan documentos"_s;
    case Veredicto::NoEsHistorico:
        return u"No es un histórico"_s;
    case Veredicto::NoSeLee:
        return u"No se puede leer"_s;
    case Veredicto::Detenida:
        return u"Revisión detenida"_s;
    }
    return {};
}

QString explicacion(const Resultado &resultado)
{
    switch (resultado.veredicto) {
    case Veredicto::Completo:
        return explicacionCompleto(resultado);
    case Veredicto::FaltanDocumentos:
        return explicacionFaltas(resultado);
    case Veredicto::NoEsHistorico:
        return u"En la carpeta no hay un histórico, o no queda nada de él."_s;
    case Veredicto::NoSeLee:
        return u"La carpeta no existe o no se puede leer. Revise el nombre, el disco y los permisos."_s;
    case Veredicto::Detenida:
        return u"La revisión se detuvo antes de terminar: no dice nada del histórico."_s;
    }
    return {};
}

QString descargado(const Resultado &resultado)
{
    if (!resultado.fechasUtiles)
        return u"no se sabe (al copiarlo se perdieron las fechas)"_s;
    if (!resultado.desde.isValid() || !resultado.hasta.isValid())
        return {};
    const QLocale espanol(QLocale::Spanish);
    const QString formato = u"d 'de' MMMM 'de' yyyy, H:mm"_s;
    const QString desde = espanol.toString(resultado.desde.toLocalTime(), formato);
    const QString hasta = espanol.toString(resultado.hasta.toLocalTime(), formato);
    return desde == hasta ? desde : u"del %1 al %2"_s.arg(desde, hasta);
}

QString cuantasVeces(const Hallazgo &hallazgo)
{
    if (hallazgo.veces < 2)
        return {};
    const auto es = [&](std::initializer_list<QStringView> reglas) {
        return std::find(reglas.begin(), reglas.end(), hallazgo.regla->nombre) != reglas.end();
    };
    const QString forma = es({u"archivo-ajeno", u"nombre-dificil"})
                              ? u"son %1 archivos de la carpeta"_s
                          : es({u"enlace-roto", u"enlace-fuera", u"direccion-del-servicio"})
                              ? u"son %1 enlaces de la página"_s
                              : u"en %1 páginas"_s;
    return forma.arg(hallazgo.veces);
}

QString enUnRenglon(const Hallazgo &hallazgo)
{
    QString detalle = legible(hallazgo.detalle);
    const QString veces = cuantasVeces(hallazgo);
    if (detalle.isEmpty() || veces.isEmpty())
        return detalle + veces;
    if (detalle.endsWith(u'.'))
        detalle.chop(1);
    return detalle + u"; "_s + veces;
}

QString legible(const QString &texto)
{
    QString limpio = texto;
    for (QChar &letra : limpio) {
        const QChar::Category clase = letra.category();
        if (clase == QChar::Other_Control || clase == QChar::Other_Format
            || clase == QChar::Separator_Line || clase == QChar::Separator_Paragraph)
            letra = QChar::ReplacementCharacter;
    }
    return limpio;
}

QString nombreDe(const Resultado &resultado)
{
    return legible(resultado.nombre.isEmpty() ? carpetaDe(resultado) : resultado.nombre);
}

QString carpetaDe(const Resultado &resultado)
{
    const std::u8string bytes = resultado.carpeta.u8string();
    return legible(QString::fromUtf8(reinterpret_cast<const char *>(bytes.data()),
                                     static_cast<qsizetype>(bytes.size())));
}

QString renglon(const Resultado &resultado)
{
    return u"%1: %2. %3"_s.arg(nombreDe(resultado), titulo(resultado), explicacion(resultado));
}

} // namespace informe
