#include "archive/descargas.h"
#include "archive/guiones.h"
#include "printing/guionBoletin.h"
#include "printing/trabajos.h"
#include "session/Module1.h"

QString tipoBoletin(const Module1 &sesion)
{
    return sesion.usaBoleta2 == u"SI" ? QStringLiteral("boletin2") : QStringLiteral("boletin");
}

namespace {

const QString alumnos = QStringLiteral("alumnos.php");
const QString coma = QStringLiteral(",");
const QString imagenesDelArchivo = QStringLiteral("..\\images\\");

// From the job's folder up to the archive root and down again through the archive folder's name.
const QString porLaRaiz = QStringLiteral("../../../{colegio}-{anio}/archivos\\images\\");

const QStringList carpetasPropias = {QStringLiteral("{raiz}"), QStringLiteral("{archivo}\\"),
                                     QStringLiteral("{documentos}"), QStringLiteral("{salida}")};
const QStringList carpetasRecortadas = {QStringLiteral("{raiz}"), QStringLiteral("{recortado}"),
                                        QStringLiteral("{documentos}"), QStringLiteral("{salida}")};

const Imagen logo = imagenes::delColegio(QStringLiteral("logo.png"));
const QList<Imagen> imagenesDeFinales = {logo, imagenes::comun(QStringLiteral("promovido.png")),
                                         imagenes::comun(QStringLiteral("reprobado.png")),
                                         imagenes::delColegio(QStringLiteral("rector.png")),
                                         imagenes::delColegio(QStringLiteral("coordinacion.png"))};

Reemplazo imagenDelObservador(const QString &archivo)
{
    return {QStringLiteral("{base}/images/") + archivo, porLaRaiz + archivo};
}

} // namespace

// The year "/2010/" is fixed in every address, whatever the session's year.
const QList<FilaTrabajo> filasTrabajo = {
    {
        .nombre = QStringLiteral("Boletines"),
        .conPeriodo = true,
        .lista = alumnos,
        .separador = coma,
        .carpetas = {QStringLiteral("{raiz}"), QStringLiteral("{recortado}"),
                     QStringLiteral("{documentos}"), QStringLiteral("{documentos}boletines\\"),
                     QStringLiteral("{salida}")},
        .salida = QStringLiteral("{documentos}boletines\\P{periodo}\\"),
        .url = QStringLiteral(
            "{base}/salones/{colegio}/2010/{tipo}/{codigo}/{periodo}/tessarin/{azar}"),
        .tipo = &tipoBoletin,
        .reemplazos = {reemplazos::imagenesDelColegio(
            QStringLiteral("../../../archivos\\images\\"))},
        .guion = &guionBoletin,
        .imagenes = {logo},
    },
    {
        .nombre = QStringLiteral("Informe Final"),
        .lista = alumnos,
        .separador = coma,
        .carpetas = carpetasPropias,
        .salida = QStringLiteral("{documentos}infofinal\\"),
        .url = QStringLiteral("{base}/salones/{colegio}/2010/{tipo}/{codigo}/tessarin/{azar}"),
        .tipo = &tipoInfoFinal,
        .reemplazos = {reemplazos::imagenesDelColegio(imagenesDelArchivo), reemplazos::promovido(),
                       reemplazos::reprobado()},
        .guion = &guiones::documento,
        .imagenes = imagenesDeFinales,
    },
    {
        .nombre = QStringLiteral("Certificado Final"),
        .lista = alumnos,
        .separador = coma,
        .carpetas = carpetasPropias,
        .salida = QStringLiteral("{documentos}certificados\\"),
        .url = QStringLiteral("{base}/salones/{colegio}/2010/{tipo}/{codigo}/tessarin/{azar}"),
        .tipo = &tipoCertificado,
        .reemplazos = {reemplazos::imagenesDelColegio(imagenesDelArchivo), reemplazos::folio()},
        .guion = &guiones::documento,
        .imagenes = imagenesDeFinales,
    },
    {
        .nombre = QStringLiteral("Paz Y Salvos"),
        .lista = alumnos,
        .separador = coma,
        .carpetas = carpetasPropias,
        .salida = QStringLiteral("{documentos}pazysalvos\\"),
        .url = QStringLiteral("{base}/alumnos/{colegio}/2010/pazYsalvo/{codigo}/tessarin/{azar}"),
        .reemplazos = {reemplazos::imagenesDelColegio(imagenesDelArchivo)},
        .imagenes = {logo},
    },
    {
        // An empty segment and the value -1 stand where the other addresses have none.
        .nombre = QStringLiteral("Observador"),
        .lista = alumnos,
        .separador = coma,
        .carpetas = carpetasRecortadas,
        .salida = QStringLiteral("{documentos}observador\\"),
        .url =
            QStringLiteral("{base}/anotador/{colegio}/2010/reporte/{codigo}//-1/tessarin/{azar}"),
        .reemplazos = {reemplazos::imagenesDelColegio(porLaRaiz),
                       imagenDelObservador(QStringLiteral("apersonal.png")),
                       imagenDelObservador(QStringLiteral("aconvivencia.png")),
                       imagenDelObservador(QStringLiteral("aacademico.png"))},
        .imagenes = {logo, imagenes::comun(QStringLiteral("apersonal.png")),
                     imagenes::comun(QStringLiteral("aconvivencia.png")),
                     imagenes::comun(QStringLiteral("aacademico.png"))},
    },
    {
        // One work sheet for each of the classroom's subjects, whose fields may hold commas.
        .nombre = QStringLiteral("Planilla Trabajo"),
        .lista = QStringLiteral("asignaturas.php"),
        .separador = QStringLiteral("@|@"),
        .carpetas = carpetasRecortadas,
        .salida = QStringLiteral("{documentos}planillaT\\"),
        .url = QStringLiteral(
            "{base}/notas/{colegio}/2010/planillaAsignatura/{codigo}/tessarin/{azar}"),
        .reemplazos = {reemplazos::imagenesDelColegio(porLaRaiz)},
        .imagenes = {logo},
    },
};
