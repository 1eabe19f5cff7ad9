// SPDX-License-Identifier: MIT
#include "pages/rutasArchivo.h"
#include "service/Entorno.h"
#include "service/limpieza.h"

using namespace Qt::StringLiterals;

namespace rutasArchivo {

QString raiz()
{
    return u"C:\\Quorvela"_s;
}

QString carpeta(const Module1 &sesion)
{
    return u"c:\\Quorvela\\"_s + sesion.idColegio + u'-' + sesion.anoActual;
}

QString documentos(const Module1 &sesion)
{
    return carpeta(sesion) + u"\\archivos\\"_s;
}

Valores valores(const Entorno &entorno)
{
    const Module1 &sesion = entorno.sesion;
    Valores valores;
    valores.poner(Lugar::Base, entorno.ServiceBase);
    valores.poner(Lugar::Colegio, sesion.idColegio);
    valores.poner(Lugar::Anio, sesion.anoActual);
    valores.poner(Lugar::Raiz, raiz());
    valores.poner(Lugar::Archivo, carpeta(sesion));
    valores.poner(Lugar::Recortado,
                  raiz() + u'\\' + recortar(sesion.idColegio) + u'-' + recortar(sesion.anoActual));
    valores.poner(Lugar::Documentos, documentos(sesion));
    valores.poner(Lugar::Imagenes, documentos(sesion) + u"images\\"_s);
    return valores;
}

} // namespace rutasArchivo
