#include "archive/rutasArchivo.h"
#include "service/Entorno.h"

namespace rutasArchivo {

QString raiz()
{
    return QStringLiteral("C:\\Quorvela");
}

QString carpeta(const Module1 &sesion)
{
    return QStringLiteral("c:\\Quorvela\\") + sesion.idColegio + u'-' + sesion.anoActual;
}

QString documentos(const Module1 &sesion)
{
    return carpeta(sesion) + QStringLiteral("\\archivos\\");
}

Valores valores(const Entorno &entorno)
{
    return {{QStringLiteral("base"), entorno.ServiceBase},
            {QStringLiteral("colegio"), entorno.sesion.idColegio},
            {QStringLiteral("anio"), entorno.sesion.anoActual},
            {QStringLiteral("raiz"), raiz()},
            {QStringLiteral("archivo"), carpeta(entorno.sesion)},
            {QStringLiteral("documentos"), documentos(entorno.sesion)},
            {QStringLiteral("imagenes"), documentos(entorno.sesion) + QStringLiteral("images\\")}};
}

} // namespace rutasArchivo
