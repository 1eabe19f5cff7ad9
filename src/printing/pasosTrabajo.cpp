#include "printing/pasosTrabajo.h"
#include "archive/rutasArchivo.h"
#include "platform/Verbos.h"
#include "printing/PanelImpresion.h"
#include "printing/numeroSalon.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "shell/Module1.h"

namespace pasosTrabajo {

std::optional<double> salonElegido(PanelImpresion &panel)
{
    const double salon = numeroSalon(panel.lineaSalon());
    if (salon > 0)
        return salon;
    panel.mensaje(QStringLiteral("Seleccione un Salon"));
    return std::nullopt;
}

QString pedirLista(Servicio &servicio, const QString &pagina, double salon)
{
    frmCargador cargador(servicio);
    return cargador.conectar(servicio.ServiceBase + QStringLiteral("/querys/tessarin/") + pagina,
                             QStringLiteral("idcolegio=") + Module1::idColegio
                                 + QStringLiteral("&tipo=matrix&salon=") + enDecimal(salon),
                             true);
}

void traerImagenes(Servicio &servicio, const QList<Imagen> &imagenes)
{
    crearCarpeta(servicio, rutasArchivo::documentos() + QStringLiteral("images"));
    descargarImagenes(servicio, imagenes);
}

void imprimir(Servicio &servicio, Verbos &verbos, const QString &documento)
{
    // Only what stands in the archive root: a code with ".." in it names nothing to print.
    if (servicio.disco.largo(documento))
        verbos.imprimir(servicio.disco.rutaNativa(documento));
}

} // namespace pasosTrabajo
