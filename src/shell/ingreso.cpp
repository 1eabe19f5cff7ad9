// SPDX-License-Identifier: MIT
#include "ingreso.h"
#include "records/tcSalones.h"
#include "service/frmCargador.h"
#include "service/tomarValores.h"

namespace ingreso {

Resultado conectar(Entorno &entorno, const QString &usuario, const QString &clave)
{
    frmCargador cargador(entorno);
    const QString respuesta = cargador.conectar(
        entorno.ServiceBase + QStringLiteral("/querys/tessarin/login.php"),
        QStringLiteral("user=") + usuario + QStringLiteral("&pwd=") + clave, true);
    if (respuesta == u"ERROR")
        return Resultado::CredencialesMalas;
    return tomarValores(entorno, respuesta) ? Resultado::Aceptado : Resultado::RolInadecuado;
}

void cargarSalones(Entorno &entorno, tcSalones &salones)
{
    frmCargador cargador(entorno);
    salones.Fcargar(cargador.conectar(
        entorno.ServiceBase + QStringLiteral("/querys/tessarin/salones.php"),
        QStringLiteral("idcolegio=") + entorno.sesion.idColegio + QStringLiteral("&tipo=matrix"),
        true));
}

} // namespace ingreso
