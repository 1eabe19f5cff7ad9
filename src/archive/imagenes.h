// Images that pages of the archive share, stored in its image folder.
#pragma once

#include <QList>
#include <QString>

struct Entorno;

struct Imagen {
    QString direccion; // may name {base} and {colegio}
    QString archivo;   // its name in the image folder
};

namespace imagenes {

// From the school's own folder on the service: "logo.png", "rector.png", "coordinacion.png".
Imagen delColegio(const QString &archivo);
// Shared by all schools: "promovido.png", "bg.gif" and the like.
Imagen comun(const QString &archivo);

} // namespace imagenes

// Fetches the images in their order. One that does not arrive is missing in the archive.
void descargarImagenes(Entorno &entorno, const QList<Imagen> &imagenes);
