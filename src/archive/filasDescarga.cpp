#include "archive/descargas.h"
#include "session/Module1.h"

QString tipoInfoFinal(const Module1 &sesion)
{
    return sesion.usaInfoFin2 == u"SI" ? QStringLiteral("infoFinal2") : QStringLiteral("infoFinal");
}

QString tipoCertificado(const Module1 &sesion)
{
    if (sesion.usaCertiFin2 == u"3")
        return QStringLiteral("certificado3");
    if (sesion.usaCertiFin2 == u"2")
        return QStringLiteral("certificado2");
    return QStringLiteral("certificado");
}

namespace filasDescarga {
namespace {

const QString imagenes = QStringLiteral("..\\images\\");

const QStringList todasLasCarpetas = {QStringLiteral("{raiz}"), QStringLiteral("{archivo}\\"),
                                      QStringLiteral("{documentos}"), QStringLiteral("{salida}")};

// The consolidated reports rely on the archive folder that the classroom pages have made.
const QStringList carpetasDeConsolidado = {QStringLiteral("{documentos}"),
                                           QStringLiteral("{salida}")};

} // namespace

// The year in document addresses is the fixed "/2010/" and the segment after a classroom the
// fixed 4, whatever the session's year: that is where the service keeps these pages.

const FilaDescarga salones = {
    .titulo = QStringLiteral("Descargando Salones"),
    .prefijo = QStringLiteral("Descargando Salon ("),
    .carpetas = todasLasCarpetas,
    .salida = QStringLiteral("{documentos}salones\\"),
    .url = QStringLiteral("{base}/querys/tessarin/alumnos.php"),
    .parametros = QStringLiteral("idcolegio={colegio}&tipo=html&salon={id}"),
    .reemplazos = {reemplazos::imagenesDelColegio(imagenes), reemplazos::etiquetaNota(),
                   reemplazos::etiqueta()},
};

const FilaDescarga consolidadoN = {
    .titulo = QStringLiteral("Descargando Consolidado Notas"),
    .prefijo = QStringLiteral("Descargando Consolidado Notas ("),
    .carpetas = carpetasDeConsolidado,
    .salida = QStringLiteral("{documentos}consolidadoN\\"),
    .url = QStringLiteral("{base}/notas/{colegio}/2010/consolidado/{id}/4/tessarin/"),
    .reemplazos = {reemplazos::imagenesDelColegio(imagenes), reemplazos::etiquetaNota(),
                   reemplazos::etiqueta()},
};

// The folder ends in a capital "F", the address in a lower-case one. A label that begins "NOTA:"
// keeps its colon here.
const FilaDescarga consolidadoF = {
    .titulo = QStringLiteral("Descargando Consolidado Fallas"),
    .prefijo = QStringLiteral("Descargando Consolidado Fallas ("),
    .carpetas = carpetasDeConsolidado,
    .salida = QStringLiteral("{documentos}consolidadoF\\"),
    .url = QStringLiteral("{base}/notas/{colegio}/2010/consolidadof/{id}/4/tessarin/"),
    .reemplazos = {reemplazos::imagenesDelColegio(imagenes), reemplazos::etiqueta()},
};

const FilaDescarga infoFinal = {
    .titulo = QStringLiteral("Descargando Informes Finales"),
    .prefijo = QStringLiteral("Informe Final ("),
    .carpetas = todasLasCarpetas,
    .salida = QStringLiteral("{documentos}infoFinal\\"),
    .url = QStringLiteral("{base}/salones/{colegio}/2010/{tipo}/{id}/tessarin/"),
    .tipo = &tipoInfoFinal,
    .reemplazos = {reemplazos::imagenesDelColegio(imagenes), reemplazos::promovido(),
                   reemplazos::reprobado()},
    .conGuion = true,
};

const FilaDescarga certificado = {
    .titulo = QStringLiteral("Descargando Certificados Finales"),
    .prefijo = QStringLiteral("Certificado ("),
    .carpetas = todasLasCarpetas,
    .salida = QStringLiteral("{documentos}certificados\\"),
    .url = QStringLiteral("{base}/salones/{colegio}/2010/{tipo}/{id}/tessarin/"),
    .tipo = &tipoCertificado,
    .reemplazos = {reemplazos::imagenesDelColegio(imagenes), reemplazos::folio()},
    .conGuion = true,
};

const FilaDescarga hojaMat = {
    .titulo = QStringLiteral("Descargando Hojas de Matricula"),
    .prefijo = QStringLiteral("Hoja Matricula ("),
    .carpetas = todasLasCarpetas,
    .salida = QStringLiteral("{documentos}matriculas\\"),
    .url = QStringLiteral("{base}/alumnos/{colegio}/2010/hojaMatricula/{id}/tessarin/"),
    .reemplazos = {reemplazos::imagenesDelColegio(imagenes), reemplazos::foto(),
                   reemplazos::avatar()},
    .conGuion = true,
};

const FilaDescarga infoAlumno = {
    .titulo = QStringLiteral("Descargando Informacion de Alumnos"),
    .prefijo = QStringLiteral("InfoAlumno ("),
    .carpetas = todasLasCarpetas,
    .salida = QStringLiteral("{documentos}infoAlumnos\\"),
    .url = QStringLiteral("{base}/querys/tessarin/infoAlumno.php"),
    .parametros = QStringLiteral("idcolegio={colegio}&idalumno={id}"),
};

const FilaDescarga fotosAlumno = {
    .titulo = QStringLiteral("Descargando Imagenes de Alumnos"),
    .prefijo = QStringLiteral("Foto de alumno ("),
    .carpetas = todasLasCarpetas,
    .salida = QStringLiteral("{documentos}fotos\\"),
    .url = QStringLiteral("{base}/querys/tessarin/existe.php"),
    .parametros = QStringLiteral("f={foto}"),
    .foto = QStringLiteral("{base}/jup/images/{colegio}/{id}-alumno.jpg"),
};

} // namespace filasDescarga
