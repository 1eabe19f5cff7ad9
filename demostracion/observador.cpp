#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"

using namespace Qt::StringLiterals;

namespace {

const QString estilo = uR"(
.aspecto { display: flex; gap: 18px; margin: 12px 0; padding: 12px 16px; border: 1px solid #d5dde7; border-radius: 4px;
  break-inside: avoid; }
.aspecto img { width: 58px; height: 58px; flex: none; }
.aspecto h2 { margin: 0 0 4px; }
.aspecto p { margin: 2px 0; }
.aspecto small { color: #53606f; }
)"_s;

struct Aspecto {
    QStringView imagen;
    QStringView titulo;
    QStringView bien;
    QStringView mejorable;
};

const Aspecto aspectos[] = {
    {u"apersonal", u"Aspecto personal",
     u"Cuida su presentación personal, expresa con respeto lo que siente y pide ayuda cuando la "
     u"necesita.",
     u"Debe fortalecer la puntualidad y el cuidado de sus útiles; se muestra dispuesto a mejorar."},
    {u"aconvivencia", u"Convivencia",
     u"Mantiene buenas relaciones con sus compañeros y maestros, y ayuda a resolver los conflictos "
     u"con diálogo.",
     u"Se distrae y distrae a sus compañeros; se acordó con la familia un compromiso de "
     u"convivencia."},
    {u"aacademico", u"Aspecto académico",
     u"Cumple con sus tareas, participa con entusiasmo y muestra curiosidad por aprender.",
     u"Requiere plan de apoyo y horario de estudio en casa para superar las asignaturas "
     u"pendientes."}};

} // namespace

QString demo::observador(const Contexto &c, const AlumnoDemo &alumno)
{
    const SalonDemo *salon = buscarSalon(c.escuela, alumno.salon);
    QString cuerpo = u"<div class=\"hoja\">"_s
                     + membrete(c, Membrete::Escrito, u"Observador del estudiante"_s)
                     + datos({{u"Estudiante"_s, alumno.nombre},
                              {u"Código"_s, alumno.id},
                              {u"Grado y grupo"_s, salon->nombre},
                              {u"Acudiente"_s, alumno.acudiente},
                              {u"Dirección de grupo"_s, salon->director},
                              {u"Año lectivo"_s, c.ajuste(u"ANOACTUAL"_s)}},
                             2);
    int numero = alumno.id.toInt();
    for (const Aspecto &aspecto : aspectos) {
        const bool bien = promovido(alumno) && numero++ % 4 != 0;
        cuerpo += u"<div class=\"aspecto\"><img src=\"%1/images/%2.png\" "
                  u"alt=\"\"><div><h2>%3</h2><p>%4</p>"
                  "<small>Registrado por %5</small></div></div>\r\n"_s.arg(
                      c.base, aspecto.imagen, aspecto.titulo,
                      bien ? aspecto.bien : aspecto.mejorable, texto(salon->director));
    }
    return pagina(u"Observador - "_s + alumno.nombre, estilo,
                  cuerpo + firmas(c, Membrete::Escrito, false) + u"</div>"_s);
}
