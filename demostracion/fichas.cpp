#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

const QString estilo = uR"(
.ficha { display: flex; gap: 22px; align-items: flex-start; }
.ficha > div { flex: 1; }
.ficha img { width: 132px; height: 165px; object-fit: cover; border: 1px solid #b9c4d1; padding: 3px; background: #fff; }
.acepta { margin-top: 18px; text-align: justify; font-size: 12px; color: #3a4653; }
.paz { font: 15.5px/1.9 Georgia, "Liberation Serif", serif; text-align: justify; }
.sello { margin: 26px auto; width: 300px; padding: 10px; border: 2px solid #2b7a5b; border-radius: 8px; color: #2b7a5b;
  text-align: center; font-weight: 700; letter-spacing: 3px; }
)"_s;

QString personales(const AlumnoDemo &alumno)
{
    return datos({{u"Apellidos y nombres"_s, alumno.nombre},
                  {u"Código"_s, alumno.id},
                  {u"Documento de identidad"_s, alumno.documento},
                  {u"Fecha de nacimiento"_s, alumno.nacimiento},
                  {u"Lugar de nacimiento"_s, alumno.lugar},
                  {u"Dirección"_s, alumno.direccion},
                  {u"Teléfono"_s, alumno.telefono}},
                 1);
}

QString familia(const AlumnoDemo &alumno)
{
    return datos({{u"Acudiente"_s, alumno.acudiente},
                  {u"Teléfono"_s, alumno.telefono},
                  {u"Parentesco"_s, u"Madre"_s},
                  {u"Ocupación"_s, u"Comerciante"_s}},
                 2);
}

QString academicos(const Contexto &c, const AlumnoDemo &alumno)
{
    const SalonDemo *salon = buscarSalon(c.escuela, alumno.salon);
    return datos({{u"Grado y grupo"_s, salon->nombre},
                  {u"Sede"_s, salon->sede},
                  {u"Año lectivo"_s, c.ajuste(u"ANOACTUAL"_s)},
                  {u"Jornada"_s, u"Mañana"_s}},
                 2);
}

} // namespace

namespace demo {

QString hojaMatricula(const Contexto &c, const AlumnoDemo &alumno)
{
    const QString foto = alumno.conFoto ? c.base + u"/jup/images/"_s + c.escuela.idColegio + u'/'
                                              + alumno.id + u"-alumno.jpg"_s
                                        : c.base + u"/images/default-avatar.png"_s;
    const QString cuerpo =
        u"<div class=\"hoja\">"_s + membrete(c, Membrete::PorGuion, u"Hoja de matrícula"_s)
        + u"<h2>Datos del estudiante</h2><div class=\"ficha\"><div>"_s + personales(alumno)
        + u"</div><img src=\""_s + foto
        + u"\" alt=\"Fotografía\"></div>\r\n<h2>Datos académicos</h2>"_s + academicos(c, alumno)
        + u"<h2>Datos familiares</h2>"_s + familia(alumno)
        + u"<p class=\"acepta\">El estudiante y su acudiente conocen y aceptan el Proyecto "
          u"Educativo Institucional y el "
          "Manual de Convivencia, y se comprometen a cumplirlos durante el año lectivo para el que "
          "se firma esta "
          "matrícula.</p>\r\n"_s
        + firmas(c, Membrete::PorGuion, true) + u"</div>"_s;
    return pagina(u"Hoja de matrícula - "_s + alumno.nombre, estilo, cuerpo);
}

// Stored as it comes: no address of the service may stand in it, so the photo is the archive's.
QString infoAlumno(const Contexto &c, const AlumnoDemo &alumno)
{
    const SalonDemo *salon = buscarSalon(c.escuela, alumno.salon);
    const QString foto = alumno.conFoto ? u"../fotos/"_s + alumno.id + u"-alumno.jpg"_s
                                        : u"../images/default-avatar.png"_s;
    const QString cuerpo =
        u"<div class=\"hoja\"><p class=\"navega\"><a href=\"../../index.html\">Sedes y salones</a> "
        "&rsaquo; <a href=\"../salones/%1.html\">%2</a></p><h1>Información del estudiante</h1>"
        "<div class=\"ficha\"><div>"_s.arg(salon->id, texto(salon->nombre))
        + personales(alumno)
        + u"</div><img src=\"%1\" alt=\"Fotografía\"></div>\r\n<h2>Datos académicos</h2>"_s.arg(
            foto)
        + academicos(c, alumno) + u"<h2>Datos familiares</h2>"_s + familia(alumno)
        + u"<h2>Documentos</h2><p><a href=\"../infoFinal/%1.html\">Informe final</a> "
          u"&nbsp;&middot;&nbsp; "
          "<a href=\"../certificados/%1.html\">Certificado</a> &nbsp;&middot;&nbsp; "
          "<a href=\"../matriculas/%1.html\">Hoja de matrícula</a></p></div>"_s.arg(alumno.id);
    return pagina(u"Información - "_s + alumno.nombre, estilo, cuerpo);
}

QString pazYsalvo(const Contexto &c, const AlumnoDemo &alumno)
{
    const SalonDemo *salon = buscarSalon(c.escuela, alumno.salon);
    const QString cuerpo =
        u"<div class=\"hoja\">"_s + membrete(c, Membrete::Escrito, u"Certificado de paz y salvo"_s)
        + u"<p class=\"paz\">La Secretaría académica hace constar que <b>%1</b>, con documento de "
          u"identidad n.º <b>%2</b>, "
          "estudiante del grado <b>%3</b> (%4), se encuentra a paz y salvo por todo concepto con "
          "la institución al "
          "terminar el año lectivo %5: biblioteca, laboratorio, material deportivo y tesorería.</p>"
          "<div class=\"sello\">PAZ Y SALVO</div>"_s.arg(texto(alumno.nombre), alumno.documento,
                                                         texto(salon->nombre), texto(salon->sede),
                                                         c.ajuste(u"ANOACTUAL"_s))
        + firmas(c, Membrete::Escrito, false) + u"</div>"_s;
    return pagina(u"Paz y salvo - "_s + alumno.nombre, estilo, cuerpo);
}

} // namespace demo
