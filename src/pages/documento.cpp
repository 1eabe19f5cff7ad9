// SPDX-License-Identifier: MIT
#include "pages/documento.h"
#include "platform/codepage.h"
#include "service/archivos.h"
#include "service/frmCargador.h"

using namespace Qt::StringLiterals;

QString tipoBoletin(const Module1 &sesion)
{
    return sesion.usaBoleta2 == u"SI" ? u"boletin2"_s : u"boletin"_s;
}

QString tipoInfoFinal(const Module1 &sesion)
{
    return sesion.usaInfoFin2 == u"SI" ? u"infoFinal2"_s : u"infoFinal"_s;
}

QString tipoCertificado(const Module1 &sesion)
{
    if (sesion.usaCertiFin2 == u"3")
        return u"certificado3"_s;
    if (sesion.usaCertiFin2 == u"2")
        return u"certificado2"_s;
    return u"certificado"_s;
}

void ponerValores(const FilaDocumento &fila, const Module1 &sesion, Valores &valores)
{
    if (fila.tipo)
        valores.poner(Lugar::Tipo, fila.tipo(sesion));
    valores.poner(Lugar::Salida, completar(fila.salida, valores));
}

void crearCarpetas(const FilaDocumento &fila, const Valores &valores, Entorno &entorno)
{
    for (const Plantilla &carpeta : fila.carpetas)
        crearCarpeta(entorno, completar(carpeta, valores));
}

void guardarDocumento(const FilaDocumento &fila, const Valores &valores, bool usarAzar,
                      const QString &archivo, frmCargador &cargador, Entorno &entorno)
{
    QByteArray pagina = localizar(
        cargador.traer(completar(fila.url, valores), completar(fila.parametros, valores), usarAzar),
        fila.reemplazos, valores);
    pagina += codepage::aBytes(fila.guion.toString());
    escribirBytes(entorno, std::move(pagina), archivo, true);
}
