#include "archive/imagenes.h"
#include "archive/rutasArchivo.h"
#include "service/archivos.h"

namespace imagenes {

Imagen delColegio(const QString &archivo)
{
    return {QStringLiteral("{base}/images/colegios/{colegio}/") + archivo, archivo};
}

Imagen comun(const QString &archivo)
{
    return {QStringLiteral("{base}/images/") + archivo, archivo};
}

} // namespace imagenes

void descargarImagenes(Entorno &entorno, const QList<Imagen> &imagenes)
{
    const Valores valores = rutasArchivo::valores(entorno);
    for (const Imagen &imagen : imagenes) {
        [[maybe_unused]] const bool llego =
            descargarArchivo(entorno, completar(imagen.direccion, valores),
                             completar(QStringLiteral("{imagenes}"), valores) + imagen.archivo);
    }
}
