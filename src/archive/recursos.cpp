// SPDX-License-Identifier: MIT
#include "archive/recursos.h"
#include "pages/imagenes.h"
#include "pages/rutasArchivo.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"
#include "service/tomarValores.h"

using namespace Qt::StringLiterals;

namespace {

// The "config" folder stays empty; the configuration stands at the top of the archive.
constexpr QStringView carpetasComunes[] = {u"jscript", u"config", u"images"};

constexpr QStringView guionesComunes[] = {u"jquery.tools.min.js", u"jquery.tablesorter.min.js"};

struct Variable {
    QStringView nombre; // in the configuration script
    QStringView campo;  // at the service
};

constexpr Variable variables[] = {
    {.nombre = u"rector", .campo = u"RECTOR"},
    {.nombre = u"secretaria", .campo = u"SECRETARIA"},
    {.nombre = u"slogan", .campo = u"SLOGAN"},
    {.nombre = u"micolegio", .campo = u"MICOLEGIO"},
    {.nombre = u"direccion", .campo = u"DIRECCION"},
    {.nombre = u"telefono", .campo = u"TELEFONO"},
    {.nombre = u"cdane", .campo = u"CDANE"},
};

constexpr Imagen imagenesCompartidas[] = {
    imagenes::delColegio(u"logo.png"), imagenes::comun(u"default-avatar.png"),
    imagenes::comun(u"bg.gif"),        imagenes::comun(u"asc.gif"),
    imagenes::comun(u"desc.gif"),      imagenes::comun(u"promovido.png"),
    imagenes::comun(u"reprobado.png"), imagenes::delColegio(u"rector.png"),
};

} // namespace

QString guionDeConfiguracion(const QList<QPair<QString, QString>> &valores)
{
    QString guion;
    for (const auto &[nombre, valor] : valores)
        guion += u"var "_s + nombre + u" = \""_s + valor + u"\";\r\n"_s;
    return guion;
}

void descargarRecursos(Entorno &entorno, const QString &carpetaArchivos)
{
    for (const QStringView carpeta : carpetasComunes)
        crearCarpeta(entorno, carpetaArchivos + carpeta.toString());

    frmCargador cargador(entorno);
    entorno.progreso.barra1->ponerMaximo(2);
    entorno.progreso.barra1->ponerValor(1);
    entorno.progreso.barra2->avanzar();
    entorno.progreso.estadoTS->ponerTexto(u"Descargando Scripts"_s);
    for (const QStringView nombre : guionesComunes) {
        const QString guion = nombre.toString();
        const QString texto =
            cargador.conectar(entorno.ServiceBase + u"/jscript/"_s + guion, QString(), true);
        // The separator is doubled: the folder's path ends with one already.
        escribirTexto(entorno, texto, carpetaArchivos + u"\\jscript\\"_s + guion, true);
    }

    entorno.progreso.estadoTS->ponerTexto(u"Descargando Configuracion"_s);
    QList<QPair<QString, QString>> valores;
    for (const Variable &variable : variables) {
        const QString valor = pedirValor(entorno, cargador, variable.campo.toString(), true);
        valores.append({variable.nombre.toString(), sinSaltos(recortar(valor))});
    }
    escribirTexto(entorno, guionDeConfiguracion(valores),
                  rutasArchivo::carpeta(entorno.sesion) + u"\\configuracion.txt"_s, true);

    entorno.progreso.barra1->avanzar();
    entorno.progreso.estadoTS->ponerTexto(u"Descargando Logotipos"_s);
    descargarImagenes(entorno, imagenesCompartidas);
}
