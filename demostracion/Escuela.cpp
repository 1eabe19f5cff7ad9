// SPDX-License-Identifier: MIT
#include "demostracion/Escuela.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// The standard library's distributions differ from one library to another, and the same seed
// has to give the same school everywhere.
class Azar {
public:
    explicit Azar(unsigned semilla) : m_estado(semilla) {}

    int hasta(int n)
    {
        m_estado += 0x9E3779B97F4A7C15ULL;
        quint64 z = m_estado;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return static_cast<int>((z ^ (z >> 31)) % static_cast<quint64>(n));
    }

    template <std::size_t N>
    QString uno(const std::array<QStringView, N> &lista)
    {
        return lista[static_cast<std::size_t>(hasta(static_cast<int>(N)))].toString();
    }

private:
    quint64 m_estado;
};

constexpr auto apellidos = std::to_array<QStringView>(
    {u"ÁLVAREZ",   u"ACOSTA",  u"ARANGO",    u"BEDOYA",    u"BERMÚDEZ", u"CAÑAS",     u"CÁRDENAS",
     u"CASTAÑO",   u"CÓRDOBA", u"DÍAZ",      u"ECHEVERRI", u"ESPAÑA",   u"FAJARDO",   u"GARCÍA",
     u"GÓMEZ",     u"GUZMÁN",  u"HERNÁNDEZ", u"HIGUITA",   u"IBÁÑEZ",   u"JARAMILLO", u"LÓPEZ",
     u"LONDOÑO",   u"MARÍN",   u"MONTAÑO",   u"MUÑOZ",     u"NARVÁEZ",  u"NÚÑEZ",     u"ORDÓÑEZ",
     u"OSPINA",    u"PEÑA",    u"PÉREZ",     u"QUIÑONES",  u"RAMÍREZ",  u"RENDÓN",    u"RÍOS",
     u"RODRÍGUEZ", u"SÁNCHEZ", u"SUÁREZ",    u"TOBÓN",     u"URIBE",    u"VALENCIA",  u"VÁSQUEZ",
     u"YEPES",     u"ZÚÑIGA"});
constexpr auto ninas = std::to_array<QStringView>(
    {u"ANA SOFÍA",    u"ÁNGELA MARÍA", u"BEGOÑA",          u"CAROLINA",   u"DANIELA",
     u"ELISA",        u"ESTEFANÍA",    u"ISABEL CRISTINA", u"LAURA INÉS", u"LUCÍA",
     u"LUZ MARINA",   u"MARÍA JOSÉ",   u"MARÍA PAZ",       u"MÓNICA",     u"NATALIA",
     u"PAULA ANDREA", u"ROCÍO",        u"SARA MILENA",     u"VALERIA",    u"VERÓNICA"});
constexpr auto ninos = std::to_array<QStringView>(
    {u"ADRIÁN", u"ÁLVARO", u"ANDRÉS FELIPE", u"CAMILO",  u"CRISTÓBAL",   u"DAVID ESTEBAN",
     u"ÉDGAR",  u"GERMÁN", u"IVÁN DARÍO",    u"JESÚS",   u"JOSÉ MANUEL", u"JUAN SEBASTIÁN",
     u"JULIÁN", u"MARTÍN", u"MATEO",         u"NICOLÁS", u"ÓSCAR IVÁN",  u"RAÚL",
     u"SAMUEL", u"TOMÁS",  u"VÍCTOR HUGO"});
constexpr auto meses = std::to_array<QStringView>(
    {u"enero", u"febrero", u"marzo", u"abril", u"mayo", u"junio", u"julio", u"agosto",
     u"septiembre", u"octubre", u"noviembre", u"diciembre"});
constexpr auto lugares =
    std::to_array<QStringView>({u"Medellín", u"Bogotá D. C.", u"Itagüí", u"Popayán", u"Ibagué",
                                u"Montería", u"Tunja", u"Cúcuta", u"El Peñol", u"Sincé"});
constexpr auto barrios =
    std::to_array<QStringView>({u"La Peña", u"Belén", u"El Peñón", u"San José", u"Simón Bolívar",
                                u"Los Álamos", u"Santa Inés"});
constexpr auto grados =
    std::to_array<QStringView>({u"PRIMERO", u"SEGUNDO", u"TERCERO", u"CUARTO", u"QUINTO", u"SEXTO",
                                u"SÉPTIMO", u"OCTAVO", u"NOVENO", u"DÉCIMO", u"UNDÉCIMO"});

struct Asignatura {
    QStringView nombre;
    QStringView area;
};
// Hyphens, accents, blanks and two subjects of one area stand among the first, so that the
// smallest school already shows them.
constexpr std::array plan = {Asignatura{u"MATEMÁTICAS", u"MATEMÁTICAS"},
                             Asignatura{u"CIENCIAS-NATURALES", u"CIENCIAS NATURALES"},
                             Asignatura{u"ESPAÑOL", u"HUMANIDADES"},
                             Asignatura{u"INGLÉS", u"HUMANIDADES"},
                             Asignatura{u"EDUCACIÓN FÍSICA", u"EDUCACIÓN FÍSICA"},
                             Asignatura{u"GEOMETRÍA", u"MATEMÁTICAS"},
                             Asignatura{u"HISTORIA", u"CIENCIAS SOCIALES"},
                             Asignatura{u"EDUCACIÓN-ARTÍSTICA", u"EDUCACIÓN-ARTÍSTICA"},
                             Asignatura{u"ÉTICA Y VALORES", u"ÉTICA Y VALORES"},
                             Asignatura{u"RELIGIÓN", u"EDUCACIÓN RELIGIOSA"},
                             Asignatura{u"TECNOLOGÍA-INFORMÁTICA", u"TECNOLOGÍA"},
                             Asignatura{u"GEOGRAFÍA", u"CIENCIAS SOCIALES"},
                             Asignatura{u"FÍSICA", u"CIENCIAS NATURALES"},
                             Asignatura{u"QUÍMICA", u"CIENCIAS NATURALES"},
                             Asignatura{u"FILOSOFÍA", u"FILOSOFÍA"}};

QString persona(Azar &azar, bool mujer)
{
    const QString primero = azar.uno(apellidos);
    const QString segundo = azar.uno(apellidos);
    return primero + u' ' + segundo + u' ' + (mujer ? azar.uno(ninas) : azar.uno(ninos));
}

void ponerSalones(Escuela &escuela, int cuantos, Azar &azar)
{
    // From fifth grade upwards first: a school of two classrooms has two sites already.
    for (int i = 0; i < cuantos; ++i) {
        const int grado = (i + 4) % 11 + 1;
        const int grupo = i / 11;
        SalonDemo salon;
        salon.id = QString::number(grado * 100 + grupo + 1);
        salon.nombre = grados[static_cast<std::size_t>(grado - 1)].toString() + u' '
                       + (grupo < 26 ? QString(QChar(u'A' + grupo)) : QString::number(grupo + 1));
        salon.grado = grado;
        salon.sede = grado <= 5 ? u"Sede La Esperanza"_s : u"Sede Principal"_s;
        salon.director = persona(azar, i % 2 == 0);
        escuela.salones.append(salon);
    }
    std::sort(escuela.salones.begin(), escuela.salones.end(),
              [](const SalonDemo &a, const SalonDemo &b) { return a.id.toInt() < b.id.toInt(); });
}

void ponerMaterias(Escuela &escuela, int cuantas, Azar &azar)
{
    for (int i = 0; i < cuantas; ++i) {
        MateriaDemo materia;
        materia.id = QString::number(i + 1);
        if (const auto k = static_cast<std::size_t>(i); k < plan.size()) {
            materia.nombre = plan[k].nombre.toString();
            materia.area = plan[k].area.toString();
        } else {
            materia.nombre = u"OPTATIVA %1"_s.arg(i + 1 - static_cast<int>(plan.size()));
            materia.area = u"OPTATIVAS"_s;
        }
        materia.docente = persona(azar, i % 3 != 0);
        materia.horas = 2 + azar.hasta(4);
        escuela.materias.append(materia);
    }
    if (cuantas > 0)
        escuela.materias.append(
            {QString::number(cuantas + 1), u"NOTADEFINITIVA"_s, u"VALORACIÓN"_s, QString(), 0});
}

void ponerNotas(AlumnoDemo &alumno, int materias, bool flojo, Azar &azar)
{
    const int nivel = flojo ? 28 : 34 + azar.hasta(11); // tenths
    for (int m = 0; m < materias; ++m) {
        const int gusto = azar.hasta(9) - 4;
        QList<double> periodos;
        for (int p = 0; p < 4; ++p) {
            const int decimas = std::clamp(nivel + gusto + azar.hasta(9) - 4, 10, 50);
            periodos.append(decimas / 10.0);
        }
        alumno.notas.append(periodos);
        alumno.fallas.append(azar.hasta(3) == 0 ? azar.hasta(flojo ? 9 : 5) : 0);
    }
}

AlumnoDemo unAlumno(const SalonDemo &salon, int numero, int materias, Azar &azar)
{
    AlumnoDemo alumno;
    alumno.mujer = azar.hasta(2) == 0;
    alumno.nombre = persona(azar, alumno.mujer);
    alumno.salon = salon.id;
    alumno.conFoto = numero % 5 != 3;
    alumno.documento = QString::number(1000000000 + azar.hasta(200000000));
    alumno.nacimiento = u"%1 de %2 de %3"_s.arg(1 + azar.hasta(28))
                            .arg(azar.uno(meses))
                            .arg(2010 - 5 - salon.grado);
    alumno.lugar = azar.uno(lugares);
    const QStringList nombres = alumno.nombre.split(u' ');
    alumno.acudiente = azar.uno(apellidos) + u' ' + nombres.at(0) + u' ' + azar.uno(ninas);
    alumno.direccion = u"Carrera %1 N.º %2-%3, barrio %4"_s.arg(1 + azar.hasta(80))
                           .arg(1 + azar.hasta(90))
                           .arg(10 + azar.hasta(80))
                           .arg(azar.uno(barrios));
    alumno.telefono = u"300 555 %1"_s.arg(azar.hasta(10000), 4, 10, QChar(u'0'));
    ponerNotas(alumno, materias, numero % 7 == 5, azar);
    return alumno;
}

} // namespace

Escuela generarEscuela(const TamanoEscuela &tamano)
{
    Azar azar(tamano.semilla);
    Escuela escuela;
    escuela.idColegio = u"123"_s;
    escuela.ajustes = {{u"ANOACTUAL"_s, u"2010"_s},
                       {u"USABOLETA2"_s, u"1"_s},
                       {u"USAINFOFIN2"_s, u"SI"_s},
                       {u"USACERTIFIN2"_s, u"2"_s},
                       {u"RECTOR"_s, u"Mag. María Eugenia Ñáñez Ordóñez"_s},
                       {u"SECRETARIA"_s, u"Adriana Lucía Muñoz Peña"_s},
                       {u"SLOGAN"_s, u"Educación con corazón, razón y compañía"_s},
                       {u"MICOLEGIO"_s, u"Institución Educativa San Martín de la Peña"_s},
                       {u"DIRECCION"_s, u"Calle 12 N.º 34-56, barrio La Peña"_s},
                       {u"TELEFONO"_s, u"604 555 01 42"_s},
                       {u"CDANE"_s, u"305001012345"_s}};
    escuela.cuentas = {{u"secretaria"_s, u"demo2010"_s, u"SECRETARIA"_s},
                       {u"superadmin"_s, u"demo2010"_s, u"SUPERADMIN"_s},
                       {u"docente"_s, u"demo2010"_s, u"DOCENTE"_s}};
    ponerSalones(escuela, tamano.salones, azar);
    ponerMaterias(escuela, tamano.materias, azar);
    int numero = 0;
    for (const SalonDemo &salon : std::as_const(escuela.salones)) {
        QList<AlumnoDemo> curso;
        for (int i = 0; i < tamano.alumnosPorSalon; ++i)
            curso.append(unAlumno(salon, numero++, tamano.materias, azar));
        std::stable_sort(curso.begin(), curso.end(), [](const AlumnoDemo &a, const AlumnoDemo &b) {
            return a.nombre < b.nombre;
        });
        for (AlumnoDemo &alumno : curso) {
            alumno.id = QString::number(1001 + escuela.alumnos.size());
            escuela.alumnos.append(alumno);
        }
    }
    return escuela;
}
