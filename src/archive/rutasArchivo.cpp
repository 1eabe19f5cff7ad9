#include "archive/rutasArchivo.h"
#include "service/Entorno.h"
#include "shell/Module1.h"

namespace rutasArchivo {

QString raiz()
{
    return QStringLiteral("C:\\Quorvela");
}

QString carpeta()
{
    return QStringLiteral("c:\\Quorvela\\") + Module1::idColegio + u'-' + Module1::anoActual;
}

QString documentos()
{
    return carpeta() + QStringLiteral("\\archivos\\");
}

Valores valores(const Entorno &entorno)
{
    return {{QStringLiteral("base"), entorno.ServiceBase},
            {QStringLiteral("colegio"), Module1::idColegio},
            {QStringLiteral("anio"), Module1::anoActual},
            {QStringLiteral("raiz"), raiz()},
            {QStringLiteral("archivo"), carpeta()},
            {QStringLiteral("documentos"), documentos()},
            {QStringLiteral("imagenes"), documentos() + QStringLiteral("images\\")}};
}

} // namespace rutasArchivo
