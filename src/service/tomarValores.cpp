// SPDX-License-Identifier: MIT
#include "service/tomarValores.h"
#include "platform/codepage.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

bool rolAceptado(const QString &rol)
{
    return rol == u"SECRETARIA" || rol == u"SUPERADMIN";
}

// A switch of the school, "SI" or whatever else the service holds.
QString interruptor(const QString &valor)
{
    return codepage::enMayusculas(valor == u"1" ? u"SI"_s : valor);
}

} // namespace

QString pedirValor(Entorno &entorno, frmCargador &cargador, const QString &campo, bool acentos)
{
    QString parametros = u"idcolegio="_s + entorno.sesion.idColegio + u"&campo="_s + campo;
    if (acentos)
        parametros += u"&acutes=SI"_s;
    return cargador.conectar(entorno.ServiceBase + u"/querys/tessarin/tomarValor.php"_s, parametros,
                             true);
}

bool tomarValores(Entorno &entorno, const QString &respuestaLogin)
{
    const QStringList campos = respuestaLogin.split(u',');
    if (!rolAceptado(campos.value(1)))
        return false;
    frmCargador cargador(entorno);
    const auto ajuste = [&](const QString &campo) {
        return recortar(pedirValor(entorno, cargador, campo, false));
    };

    // A super administrator works in the program as a secretary.
    entorno.sesion.rolUsuario = u"SECRETARIA"_s;
    entorno.sesion.idColegio = campos.value(0);
    // The year is asked for with the id as it came; its line breaks go only afterwards.
    entorno.sesion.anoActual = ajuste(u"ANOACTUAL"_s);
    entorno.sesion.idColegio = sinSaltos(entorno.sesion.idColegio);
    entorno.sesion.anoActual = sinSaltos(entorno.sesion.anoActual);
    entorno.sesion.usaBoleta2 = ajuste(u"USABOLETA2"_s);
    entorno.sesion.usaInfoFin2 = ajuste(u"USAINFOFIN2"_s);
    // The certificate's switch stays as the service sent it: it is compared with "2" and "3",
    // the values that the service sends for it.
    entorno.sesion.usaCertiFin2 = ajuste(u"USACERTIFIN2"_s);
    entorno.sesion.usaBoleta2 = interruptor(entorno.sesion.usaBoleta2);
    entorno.sesion.usaInfoFin2 = interruptor(entorno.sesion.usaInfoFin2);
    return true;
}
