#include "printing/pasosTrabajo.h"
#include "archive/rutasArchivo.h"
#include "platform/Verbos.h"
#include "printing/PanelImpresion.h"
#include "printing/numeroSalon.h"
#include "service/archivos.h"
#include "service/frmCargador.h"

namespace pasosTrabajo {

std::optional<double> salonElegido(PanelImpresion &panel)
{
    const double salon = numeroSalon(panel.lineaSalon());
    if (salon > 0)
        return salon;
    panel.mensaje(QStringLiteral("Seleccione un Salon"));
    return std::nullopt;
}

QString pedirLista(Entorno &entorno, const QString &pagina, double salon)
{
    frmCargador cargador(entorno);
    return cargador.conectar(entorno.ServiceBase + QStringLiteral("/querys/tessarin/") + pagina,
                             QStringLiteral("idcolegio=") + entorno.sesion.idColegio
                                 + QStringLiteral("&tipo=matrix&salon=") + enDecimal(salon),
                             true);
}

void traerImagenes(Entorno &entorno, const QList<Imagen> &imagenes)
{
    crearCarpeta(entorno, rutasArchivo::documentos(entorno.sesion) + QStringLiteral("images"));
    descargarImagenes(entorno, imagenes);
}

void imprimir(Entorno &entorno, Verbos &verbos, const QString &documento)
{
    // Only what stands in the archive root: a code with ".." in it names nothing to print.
    if (entorno.disco.largo(documento))
        verbos.imprimir(entorno.disco.rutaNativa(documento));
}

} // namespace pasosTrabajo
