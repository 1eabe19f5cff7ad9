// SPDX-License-Identifier: MIT
#include "Renglon.h"
#include "revisor/informe.h"
#include "rutas.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using copia::Diferencia;
using informe::legible;

namespace {

// What a browser or a picture viewer shows. Anything else that lies in an archive might be a
// program, and is not opened from here.
bool sePuedeMirar(const QString &archivo)
{
    constexpr std::array extensiones = {u".html", u".htm", u".jpg",  u".jpeg",
                                        u".png",  u".gif", u".jfif", u".txt"};
    return std::any_of(extensiones.begin(), extensiones.end(), [&](const char16_t *extension) {
        return archivo.endsWith(QStringView(extension), Qt::CaseInsensitive);
    });
}

Renglon renglonDe(const Hallazgo &hallazgo, const QString &carpeta)
{
    return {.quien = legible(hallazgo.persona.isEmpty() ? hallazgo.idPersona : hallazgo.persona),
            .id = legible(hallazgo.idPersona),
            .salon = legible(hallazgo.salon.isEmpty() ? hallazgo.idSalon : hallazgo.salon),
            .que = hallazgo.regla->texto.toString(),
            .detalle = informe::enUnRenglon(hallazgo),
            .archivo = legible(hallazgo.archivo),
            .queHacer = hallazgo.regla->queHacer.toString(),
            .clase = static_cast<int>(hallazgo.regla - reglas::todas.data()),
            .ruta = sePuedeMirar(hallazgo.archivo) ? carpeta + u'/' + hallazgo.archivo : QString()};
}

QList<Renglon> renglones(const Resultado &resultado, bool notas)
{
    const QString carpeta = rutas::enTexto(resultado.carpeta);
    QList<Renglon> todos;
    for (const Hallazgo &hallazgo : resultado.hallazgos) {
        if ((hallazgo.regla->gravedad == Gravedad::Nota) == notas)
            todos.append(renglonDe(hallazgo, carpeta));
    }
    return todos;
}

} // namespace

QList<Renglon> renglonesDeFaltas(const Resultado &resultado)
{
    return renglones(resultado, false);
}

QList<Renglon> renglonesDeNotas(const Resultado &resultado)
{
    return renglones(resultado, true);
}

QList<Renglon> renglonesDe(const copia::Comprobacion &comprobacion)
{
    QList<Renglon> todos;
    for (const Diferencia &una : comprobacion.diferencias) {
        Renglon renglon{.archivo = legible(una.nombre), .clase = static_cast<int>(una.clase)};
        switch (una.clase) {
        case Diferencia::Clase::Cambiado:
            renglon.que = u"El archivo cambió desde que se guardó la copia."_s;
            renglon.queHacer = u"No confíe en este archivo: tómelo de otra copia."_s;
            break;
        case Diferencia::Clase::Falta:
            renglon.que = u"El archivo falta en la copia."_s;
            renglon.queHacer = u"Tómelo de otra copia, o guarde la copia de nuevo."_s;
            break;
        case Diferencia::Clase::Sobra:
            renglon.que = u"El archivo no estaba cuando se guardó la copia."_s;
            renglon.queHacer = u"Si no lo puso usted, no lo abra."_s;
            break;
        }
        todos.append(renglon);
    }
    return todos;
}
