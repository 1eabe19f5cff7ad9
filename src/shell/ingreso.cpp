#include "shell/ingreso.h"
#include "records/tcSalones.h"
#include "service/frmCargador.h"
#include "service/tomarValores.h"
#include "shell/Module1.h"

namespace ingreso {

Resultado conectar(Servicio &servicio, const QString &usuario, const QString &clave)
{
    frmCargador cargador(servicio);
    const QString respuesta = cargador.conectar(
        servicio.ServiceBase + QStringLiteral("/querys/tessarin/login.php"),
        QStringLiteral("user=") + usuario + QStringLiteral("&pwd=") + clave, true);
    if (respuesta == u"ERROR")
        return Resultado::CredencialesMalas;
    return tomarValores(servicio, respuesta) ? Resultado::Aceptado : Resultado::RolInadecuado;
}

void cargarSalones(Servicio &servicio, tcSalones &salones)
{
    frmCargador cargador(servicio);
    salones.Fcargar(cargador.conectar(
        servicio.ServiceBase + QStringLiteral("/querys/tessarin/salones.php"),
        QStringLiteral("idcolegio=") + Module1::idColegio + QStringLiteral("&tipo=matrix"), true));
}

} // namespace ingreso
