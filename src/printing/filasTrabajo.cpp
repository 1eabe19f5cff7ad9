// SPDX-License-Identifier: MIT
#include "pages/guiones.h"
#include "printing/trabajos.h"

namespace {

constexpr QStringView alumnos = u"alumnos.php";
constexpr QStringView coma = u",";

constexpr Plantilla carpetasDeBoletin[] = {u"{raiz}", u"{recortado}", u"{documentos}",
                                           u"{documentos}boletines\\", u"{salida}"};
constexpr Plantilla carpetasPropias[] = {u"{raiz}", u"{archivo}\\", u"{documentos}", u"{salida}"};
constexpr Plantilla carpetasRecortadas[] = {u"{raiz}", u"{recortado}", u"{documentos}",
                                            u"{salida}"};

constexpr Reemplazo delArchivo = reemplazos::imagenesDelColegio(u"..\\images\\");
// From the job's folder up to the archive root and down again through the archive folder's name.
constexpr Reemplazo porLaRaiz =
    reemplazos::imagenesDelColegio(u"../../../{colegio}-{anio}/archivos\\images\\");

constexpr Reemplazo deBoletin[] = {reemplazos::imagenesDelColegio(u"../../../archivos\\images\\")};
constexpr Reemplazo deInformeFinal[] = {delArchivo, reemplazos::promovido, reemplazos::reprobado};
constexpr Reemplazo deCertificado[] = {delArchivo, reemplazos::folio};
constexpr Reemplazo dePazYSalvo[] = {delArchivo};
constexpr Reemplazo deObservador[] = {
    porLaRaiz,
    {.buscar = u"{base}/images/apersonal.png",
     .poner = u"../../../{colegio}-{anio}/archivos\\images\\apersonal.png"},
    {.buscar = u"{base}/images/aconvivencia.png",
     .poner = u"../../../{colegio}-{anio}/archivos\\images\\aconvivencia.png"},
    {.buscar = u"{base}/images/aacademico.png",
     .poner = u"../../../{colegio}-{anio}/archivos\\images\\aacademico.png"},
};
constexpr Reemplazo dePlanilla[] = {porLaRaiz};

constexpr Imagen soloLogo[] = {imagenes::delColegio(u"logo.png")};
constexpr Imagen imagenesDeFinales[] = {
    imagenes::delColegio(u"logo.png"), imagenes::comun(u"promovido.png"),
    imagenes::comun(u"reprobado.png"), imagenes::delColegio(u"rector.png"),
    imagenes::delColegio(u"coordinacion.png")};
constexpr Imagen imagenesDeObservador[] = {
    imagenes::delColegio(u"logo.png"), imagenes::comun(u"apersonal.png"),
    imagenes::comun(u"aconvivencia.png"), imagenes::comun(u"aacademico.png")};

} // namespace

// The year "/2010/" is fixed in every address, whatever the session's year: that is where the
// service keeps these pages.
constexpr std::array<FilaTrabajo, 6> filasTrabajo = {{
    {
        .nombre = u"Boletines",
        .conPeriodo = true,
        .lista = alumnos,
        .separador = coma,
        .documento =
            {
                .carpetas = carpetasDeBoletin,
                .salida = u"{documentos}boletines\\P{periodo}\\",
                .url = u"{base}/salones/{colegio}/2010/{tipo}/{id}/{periodo}/tessarin/{azar}",
                .tipo = &tipoBoletin,
                .reemplazos = deBoletin,
                .guion = guiones::boletin,
            },
        .imagenes = soloLogo,
    },
    {
        .nombre = u"Informe Final",
        .lista = alumnos,
        .separador = coma,
        .documento =
            {
                .carpetas = carpetasPropias,
                .salida = u"{documentos}infofinal\\",
                .url = u"{base}/salones/{colegio}/2010/{tipo}/{id}/tessarin/{azar}",
                .tipo = &tipoInfoFinal,
                .reemplazos = deInformeFinal,
                .guion = guiones::documento,
            },
        .imagenes = imagenesDeFinales,
    },
    {
        .nombre = u"Certificado Final",
        .lista = alumnos,
        .separador = coma,
        .documento =
            {
                .carpetas = carpetasPropias,
                .salida = u"{documentos}certificados\\",
                .url = u"{base}/salones/{colegio}/2010/{tipo}/{id}/tessarin/{azar}",
                .tipo = &tipoCertificado,
                .reemplazos = deCertificado,
                .guion = guiones::documento,
            },
        .imagenes = imagenesDeFinales,
    },
    {
        .nombre = u"Paz Y Salvos",
        .lista = alumnos,
        .separador = coma,
        .documento =
            {
                .carpetas = carpetasPropias,
                .salida = u"{documentos}pazysalvos\\",
                .url = u"{base}/alumnos/{colegio}/2010/pazYsalvo/{id}/tessarin/{azar}",
                .reemplazos = dePazYSalvo,
            },
        .imagenes = soloLogo,
    },
    {
        .nombre = u"Observador",
        .lista = alumnos,
        .separador = coma,
        .documento =
            {
                .carpetas = carpetasRecortadas,
                .salida = u"{documentos}observador\\",
                // An empty segment and the value -1 stand where the other addresses have none.
                .url = u"{base}/anotador/{colegio}/2010/reporte/{id}//-1/tessarin/{azar}",
                .reemplazos = deObservador,
            },
        .imagenes = imagenesDeObservador,
    },
    {
        // One work sheet for each of the classroom's subjects, whose fields may hold commas.
        .nombre = u"Planilla Trabajo",
        .lista = u"asignaturas.php",
        .separador = u"@|@",
        .documento =
            {
                .carpetas = carpetasRecortadas,
                .salida = u"{documentos}planillaT\\",
                .url = u"{base}/notas/{colegio}/2010/planillaAsignatura/{id}/tessarin/{azar}",
                .reemplazos = dePlanilla,
            },
        .imagenes = soloLogo,
    },
}};
