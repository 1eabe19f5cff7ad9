// SPDX-License-Identifier: MIT
#include "archive/descargas.h"
#include "pages/guiones.h"

namespace filasDescarga {
namespace {

constexpr Plantilla todasLasCarpetas[] = {u"{raiz}", u"{archivo}\\", u"{documentos}", u"{salida}"};

// The consolidated reports rely on the archive folder that the classroom pages have made.
constexpr Plantilla carpetasDeConsolidado[] = {u"{documentos}", u"{salida}"};

constexpr Reemplazo imagenesDelColegio = reemplazos::imagenesDelColegio(u"..\\images\\");

constexpr Reemplazo deSalones[] = {imagenesDelColegio, reemplazos::etiquetaNota,
                                   reemplazos::etiqueta};
// A label that begins "NOTA:" keeps its colon in the consolidated absences: they show none.
constexpr Reemplazo deFallas[] = {imagenesDelColegio, reemplazos::etiqueta};
constexpr Reemplazo deInfoFinal[] = {imagenesDelColegio, reemplazos::promovido,
                                     reemplazos::reprobado};
constexpr Reemplazo deCertificado[] = {imagenesDelColegio, reemplazos::folio};
constexpr Reemplazo deHojaMat[] = {imagenesDelColegio, reemplazos::foto, reemplazos::avatar};

} // namespace

// The year in document addresses is the fixed "/2010/" and the segment after a classroom the
// fixed 4, whatever the session's year: that is where the service keeps these pages.
constexpr std::array<FilaDescarga, Cuantas> todas = {{
    {
        .titulo = u"Descargando Salones",
        .prefijo = u"Descargando Salon (",
        .documento =
            {
                .carpetas = todasLasCarpetas,
                .salida = u"{documentos}salones\\",
                .url = u"{base}/querys/tessarin/alumnos.php",
                .parametros = u"idcolegio={colegio}&tipo=html&salon={id}",
                .reemplazos = deSalones,
            },
    },
    {
        .titulo = u"Descargando Consolidado Notas",
        .prefijo = u"Descargando Consolidado Notas (",
        .documento =
            {
                .carpetas = carpetasDeConsolidado,
                .salida = u"{documentos}consolidadoN\\",
                .url = u"{base}/notas/{colegio}/2010/consolidado/{id}/4/tessarin/",
                .reemplazos = deSalones,
            },
    },
    {
        // The folder ends in a capital "F", the address in a lower-case one.
        .titulo = u"Descargando Consolidado Fallas",
        .prefijo = u"Descargando Consolidado Fallas (",
        .documento =
            {
                .carpetas = carpetasDeConsolidado,
                .salida = u"{documentos}consolidadoF\\",
                .url = u"{base}/notas/{colegio}/2010/consolidadof/{id}/4/tessarin/",
                .reemplazos = deFallas,
            },
    },
    {
        .titulo = u"Descargando Informes Finales",
        .prefijo = u"Informe Final (",
        .documento =
            {
                .carpetas = todasLasCarpetas,
                .salida = u"{documentos}infoFinal\\",
                .url = u"{base}/salones/{colegio}/2010/{tipo}/{id}/tessarin/",
                .tipo = &tipoInfoFinal,
                .reemplazos = deInfoFinal,
                .guion = guiones::documento,
            },
    },
    {
        .titulo = u"Descargando Certificados Finales",
        .prefijo = u"Certificado (",
        .documento =
            {
                .carpetas = todasLasCarpetas,
                .salida = u"{documentos}certificados\\",
                .url = u"{base}/salones/{colegio}/2010/{tipo}/{id}/tessarin/",
                .tipo = &tipoCertificado,
                .reemplazos = deCertificado,
                .guion = guiones::documento,
            },
    },
    {
        .titulo = u"Descargando Hojas de Matricula",
        .prefijo = u"Hoja Matricula (",
        .documento =
            {
                .carpetas = todasLasCarpetas,
                .salida = u"{documentos}matriculas\\",
                .url = u"{base}/alumnos/{colegio}/2010/hojaMatricula/{id}/tessarin/",
                .reemplazos = deHojaMat,
                .guion = guiones::documento,
            },
    },
    {
        .titulo = u"Descargando Informacion de Alumnos",
        .prefijo = u"InfoAlumno (",
        .documento =
            {
                .carpetas = todasLasCarpetas,
                .salida = u"{documentos}infoAlumnos\\",
                .url = u"{base}/querys/tessarin/infoAlumno.php",
                .parametros = u"idcolegio={colegio}&idalumno={id}",
            },
    },
    {
        .titulo = u"Descargando Imagenes de Alumnos",
        .prefijo = u"Foto de alumno (",
        .documento =
            {
                .carpetas = todasLasCarpetas,
                .salida = u"{documentos}fotos\\",
                .url = u"{base}/querys/tessarin/existe.php",
                .parametros = u"f={foto}",
            },
    },
}};

} // namespace filasDescarga
