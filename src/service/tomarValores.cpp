#include "service/tomarValores.h"
#include "platform/codepage.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"
#include "shell/Module1.h"

#include <QStringList>

namespace {

bool rolAceptado(const QString &rol)
{
    return rol == u"SECRETARIA" || rol == u"SUPERADMIN";
}

// A switch of the school, "SI" or whatever else the service holds.
QString interruptor(const QString &valor)
{
    return codepage::enMayusculas(valor == u"1" ? QStringLiteral("SI") : valor);
}

} // namespace

QString pedirValor(Entorno &entorno, frmCargador &cargador, const QString &campo, bool acentos)
{
    QString parametros =
        QStringLiteral("idcolegio=") + Module1::idColegio + QStringLiteral("&campo=") + campo;
    if (acentos)
        parametros += QStringLiteral("&acutes=SI");
    return cargador.conectar(
        entorno.ServiceBase + QStringLiteral("/querys/tessarin/tomarValor.php"), parametros, true);
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
    Module1::rolUsuario = QStringLiteral("SECRETARIA");
    Module1::idColegio = campos.value(0);
    // The year is asked for with the id as it came; its line breaks go only afterwards.
    Module1::anoActual = ajuste(QStringLiteral("ANOACTUAL"));
    Module1::idColegio = sinSaltos(Module1::idColegio);
    Module1::anoActual = sinSaltos(Module1::anoActual);
    Module1::usaBoleta2 = ajuste(QStringLiteral("USABOLETA2"));
    Module1::usaInfoFin2 = ajuste(QStringLiteral("USAINFOFIN2"));
    // The certificate's switch stays as the service sent it: it is compared with "2" and "3",
    // the values that the service sends for it.
    Module1::usaCertiFin2 = ajuste(QStringLiteral("USACERTIFIN2"));
    Module1::usaBoleta2 = interruptor(Module1::usaBoleta2);
    Module1::usaInfoFin2 = interruptor(Module1::usaInfoFin2);
    return true;
}
