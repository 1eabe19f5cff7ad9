// SPDX-License-Identifier: MIT
// Who is in the archive, and what of theirs is missing.
#include "Juicio.h"
#include "texto.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// "Informe final - ANA PEÑA" names the student after the dash.
QString nombreEnTitulo(const QString &titulo)
{
    const qsizetype lugar = titulo.lastIndexOf(u" - "_s);
    return lugar < 0 ? QString() : titulo.mid(lugar + 3).trimmed();
}

} // namespace

void Juicio::conocer(const familias::Lugar &lugar)
{
    switch (familias::todas[lugar.familia].de) {
    case De::Salon:
        if (Salon &salon = m_salones[texto::clave(lugar.id)]; salon.id.isEmpty())
            salon.id = lugar.id;
        return;
    case De::Alumno:
    case De::Foto:
        if (Persona &persona = m_personas[texto::clave(lugar.id)]; persona.id.isEmpty())
            persona.id = lugar.id;
        return;
    case De::Colegio:
    case De::Lote:
        return;
    }
}

// All that have a document or that a page links.
void Juicio::reunirPersonas()
{
    for (const Entrada &entrada : m_inventario.archivos) {
        if (entrada.familia >= 0)
            conocer({static_cast<familias::Cual>(entrada.familia), entrada.id});
    }
    for (const Lectura &lectura : m_lecturas) {
        for (const Lectura::Ausencia &ausencia : lectura.ausencias) {
            if (const auto lugar = familias::lugarDe(ausencia.ruta))
                conocer(*lugar);
        }
    }
    m_resultado.personas = static_cast<int>(m_personas.size());
    m_resultado.salones = static_cast<int>(m_salones.size());
}

// A classroom's page names its students best; else their documents' titles do.
void Juicio::nombrarPersonas()
{
    for (const Lectura &lectura : m_lecturas) {
        for (const Lectura::Nombrado &nombrado : lectura.nombrados) {
            const QString clave = texto::clave(nombrado.lugar.id);
            if (nombrado.lugar.familia == familias::Salones) {
                if (auto salon = m_salones.find(clave);
                    salon != m_salones.end() && salon->nombre.isEmpty())
                    salon->nombre = nombrado.nombre;
            } else if (auto persona = m_personas.find(clave);
                       persona != m_personas.end() && persona->nombre.isEmpty()) {
                persona->nombre = nombrado.nombre;
            }
        }
    }
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        const Entrada &entrada = m_inventario.archivos[i];
        if (entrada.familia < 0 || m_lecturas[i].diceError)
            continue;
        const auto persona = m_personas.find(texto::clave(entrada.id));
        if (familias::todas[static_cast<std::size_t>(entrada.familia)].de == De::Alumno
            && persona != m_personas.end() && persona->nombre.isEmpty())
            persona->nombre = nombreEnTitulo(m_lecturas[i].titulo);
    }
}

// A student is of the classroom whose page links a document of theirs, or that their own page
// links.
void Juicio::repartirEnSalones()
{
    const auto ponerSalon = [&](const QString &idPersona, const QString &idSalon) {
        const auto persona = m_personas.find(texto::clave(idPersona));
        if (persona != m_personas.end() && persona->salon.isEmpty())
            persona->salon = texto::clave(idSalon);
    };
    const auto deUnoAOtro = [&](const familias::Lugar &uno, const familias::Lugar &otro) {
        const De de = familias::todas[otro.familia].de;
        if (uno.familia == familias::Salones && (de == De::Alumno || de == De::Foto))
            ponerSalon(otro.id, uno.id);
        else if (uno.familia == familias::InfoAlumnos && otro.familia == familias::Salones)
            ponerSalon(uno.id, otro.id);
    };
    for (const familias::Cual desde : {familias::Salones, familias::InfoAlumnos}) {
        for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
            const Entrada &entrada = m_inventario.archivos[i];
            if (entrada.familia != desde)
                continue;
            const familias::Lugar uno{desde, entrada.id};
            for (const int hacia : m_lecturas[i].hacia) {
                const Entrada &otra = m_inventario.archivos[static_cast<std::size_t>(hacia)];
                if (otra.familia >= 0)
                    deUnoAOtro(uno, {static_cast<familias::Cual>(otra.familia), otra.id});
            }
            for (const Lectura::Ausencia &ausencia : m_lecturas[i].ausencias) {
                if (const auto otra = familias::lugarDe(ausencia.ruta))
                    deUnoAOtro(uno, *otra);
            }
        }
    }
}

void Juicio::faltasDePersonas()
{
    for (const Salon &salon : std::as_const(m_salones)) {
        for (const familias::Cual familia : familias::deSalon) {
            const QString ruta = familias::rutaDe(familia, salon.id);
            if (m_inventario.buscar(ruta).clase != Hallado::Archivo)
                avisar(reglas::FaltaSalon, ruta, familias::todas[familia].nombre.toString());
        }
    }
    for (const Persona &persona : std::as_const(m_personas)) {
        for (const familias::Cual familia : familias::deAlumno) {
            const QString ruta = familias::rutaDe(familia, persona.id);
            if (m_inventario.buscar(ruta).clase != Hallado::Archivo)
                avisar(reglas::FaltaDocumento, ruta, familias::todas[familia].nombre.toString());
        }
    }
}

// Last, from the findings.
void Juicio::contarSecciones()
{
    QSet<QString> malos;
    QSet<QString> personas;
    QSet<QString> salones;
    std::array<int, familias::Cuantas> faltan{};
    for (const Hallazgo &hallazgo : std::as_const(m_resultado.hallazgos)) {
        if (hallazgo.regla->gravedad == Gravedad::Nota)
            continue;
        if (m_personas.contains(texto::clave(hallazgo.idPersona)))
            personas.insert(hallazgo.idPersona);
        if (!hallazgo.idSalon.isEmpty())
            salones.insert(hallazgo.idSalon);
        if (hallazgo.regla->gravedad == Gravedad::Danio)
            malos.insert(hallazgo.archivo);
        else if (const auto lugar = familias::lugarDe(hallazgo.archivo))
            ++faltan[lugar->familia];
    }
    m_resultado.personasConFaltas = static_cast<int>(personas.size());
    m_resultado.salonesConFaltas = static_cast<int>(salones.size());
    std::array<Seccion, familias::Cuantas> secciones;
    for (const Entrada &entrada : m_inventario.archivos) {
        if (entrada.familia < 0)
            continue;
        Seccion &seccion = secciones[static_cast<std::size_t>(entrada.familia)];
        ++seccion.hay;
        if (!malos.contains(entrada.texto))
            ++seccion.buenos;
    }
    for (std::size_t i = 0; i < secciones.size(); ++i) {
        Seccion &seccion = secciones[i];
        seccion.nombre = familias::todas[i].nombre.toString();
        seccion.carpeta = familias::todas[i].carpeta.toString();
        seccion.esperados = seccion.hay + faltan[i];
        if (familias::todas[i].de != De::Lote || seccion.hay > 0)
            m_resultado.secciones.append(seccion);
    }
    m_resultado.fotos = secciones[familias::Fotos].hay;
}
