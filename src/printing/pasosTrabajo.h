// The steps that all print jobs share.
#pragma once

#include "archive/imagenes.h"

#include <QList>
#include <QString>

#include <optional>

class PanelImpresion;
class Verbos;
struct Entorno;

namespace pasosTrabajo {

// The number of the chosen classroom; nothing, after the message "Seleccione un Salon", when
// none is chosen.
std::optional<double> salonElegido(PanelImpresion &panel);

// The list of a classroom's students (or subjects), as the service sends it.
QString pedirLista(Entorno &entorno, const QString &pagina, double salon);

// After the last document: fetches the images that the documents share. Only then, so that what
// was printed in a school's first run may show no logo.
void traerImagenes(Entorno &entorno, const QList<Imagen> &imagenes);

// Hands a stored document, named by its Windows path, to the shell's "print".
void imprimir(Entorno &entorno, Verbos &verbos, const QString &documento);

} // namespace pasosTrabajo
