#include "archive/recursos.h"
#include "archive/imagenes.h"
#include "archive/rutasArchivo.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"
#include "service/tomarValores.h"

#include <QStringList>

namespace {

const QStringList guiones = {QStringLiteral("jquery.tools.min.js"),
                             QStringLiteral("jquery.tablesorter.min.js")};

struct Variable {
    QString nombre; // in the configuration script
    QString campo;  // at the service
};

const QList<Variable> variables = {
    {QStringLiteral("rector"), QStringLiteral("RECTOR")},
    {QStringLiteral("secretaria"), QStringLiteral("SECRETARIA")},
    {QStringLiteral("slogan"), QStringLiteral("SLOGAN")},
    {QStringLiteral("micolegio"), QStringLiteral("MICOLEGIO")},
    {QStringLiteral("direccion"), QStringLiteral("DIRECCION")},
    {QStringLiteral("telefono"), QStringLiteral("TELEFONO")},
    {QStringLiteral("cdane"), QStringLiteral("CDANE")},
};

const QList<Imagen> imagenesCompartidas = {
    imagenes::delColegio(QStringLiteral("logo.png")),
    imagenes::comun(QStringLiteral("default-avatar.png")),
    imagenes::comun(QStringLiteral("bg.gif")),
    imagenes::comun(QStringLiteral("asc.gif")),
    imagenes::comun(QStringLiteral("desc.gif")),
    imagenes::comun(QStringLiteral("promovido.png")),
    imagenes::comun(QStringLiteral("reprobado.png")),
    imagenes::delColegio(QStringLiteral("rector.png")),
};

} // namespace

QString guionDeConfiguracion(const QList<QPair<QString, QString>> &valores)
{
    QString guion;
    for (const auto &[nombre, valor] : valores)
        guion += QStringLiteral("var ") + nombre + QStringLiteral(" = \"") + valor
                 + QStringLiteral("\";\r\n");
    return guion;
}

void descargarRecursos(Entorno &entorno, const QString &carpetaArchivos)
{
    // The "config" folder stays empty; the configuration stands at the top of the archive.
    for (const auto &carpeta :
         {QStringLiteral("jscript"), QStringLiteral("config"), QStringLiteral("images")})
        crearCarpeta(entorno, carpetaArchivos + carpeta);

    frmCargador cargador(entorno);
    entorno.progreso.barra1->ponerMaximo(2);
    entorno.progreso.barra1->ponerValor(1);
    entorno.progreso.barra2->avanzar();
    entorno.progreso.estadoTS->ponerTexto(QStringLiteral("Descargando Scripts"));
    for (const QString &guion : guiones) {
        const QString texto = cargador.conectar(
            entorno.ServiceBase + QStringLiteral("/jscript/") + guion, QString(), true);
        // The separator is doubled: the folder's path ends with one already.
        escribirTexto(entorno, texto, carpetaArchivos + QStringLiteral("\\jscript\\") + guion,
                      true);
    }

    entorno.progreso.estadoTS->ponerTexto(QStringLiteral("Descargando Configuracion"));
    QList<QPair<QString, QString>> valores;
    for (const Variable &variable : variables) {
        const QString valor = pedirValor(entorno, cargador, variable.campo, true);
        valores.append({variable.nombre, sinSaltos(recortar(valor))});
    }
    escribirTexto(entorno, guionDeConfiguracion(valores),
                  rutasArchivo::carpeta(entorno.sesion) + QStringLiteral("\\configuracion.txt"),
                  true);

    entorno.progreso.barra1->avanzar();
    entorno.progreso.estadoTS->ponerTexto(QStringLiteral("Descargando Logotipos"));
    descargarImagenes(entorno, imagenesCompartidas);
}
