// SPDX-License-Identifier: MIT
#include "ingreso.h"
#include "records/tcSalones.h"
#include "service/frmCargador.h"
#include "service/tomarValores.h"

using namespace Qt::StringLiterals;

namespace ingreso {

Resultado conectar(Entorno &entorno, const QString &usuario, const QString &clave)
{
    frmCargador cargador(entorno);
    const QString respuesta =
        cargador.conectar(entorno.ServiceBase + u"/querys/tessarin/login.php"_s,
                          u"user="_s + usuario + u"&pwd="_s + clave, true);
    if (respuesta == u"ERROR")
        return Resultado::CredencialesMalas;
    return tomarValores(entorno, respuesta) ? Resultado::Aceptado : Resultado::RolInadecuado;
}

void cargarSalones(Entorno &entorno, tcSalones &salones)
{
    frmCargador cargador(entorno);
    salones.Fcargar(
        cargador.conectar(entorno.ServiceBase + u"/querys/tessarin/salones.php"_s,
                          u"idcolegio="_s + entorno.sesion.idColegio + u"&tipo=matrix"_s, true));
}

} // namespace ingreso
