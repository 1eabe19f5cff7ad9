// SPDX-License-Identifier: MIT
#include "Juicio.h"
#include "texto.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

Juicio::Juicio(const Contexto &contexto, const std::vector<Lectura> &lecturas, Resultado &resultado)
    : m_contexto(contexto), m_inventario(contexto.inventario), m_lecturas(lecturas),
      m_resultado(resultado), m_malas(lecturas.size()), m_enlazadas(lecturas.size()),
      m_conocidas(lecturas.size())
{
}

void Juicio::juzgar()
{
    m_descargado = hayDescarga();
    for (const Lectura &lectura : m_lecturas) {
        for (const int hacia : lectura.hacia)
            m_enlazadas[static_cast<std::size_t>(hacia)] = 1;
    }
    reunirPersonas();
    nombrarPersonas();
    repartirEnSalones();
    senalesDeLecturas();
    compararPaginas();
    reunirAusentes();
    if (m_descargado)
        faltasDePersonas();
    else
        avisar(reglas::SoloImpresiones, QString());
    faltasDeEnlaces();
    juzgarFechas();
    restos();
    ordenar();
    contarSecciones();
    acortar();
}

// Print jobs store documents too. What none of them makes tells of a download.
bool Juicio::hayDescarga() const
{
    bool deLote = false;
    for (const Entrada &entrada : m_inventario.archivos) {
        const bool compartida =
            entrada.familia == familias::InfoFinal || entrada.familia == familias::Certificados;
        if (entrada.clase == Entrada::Configuracion || entrada.clase == Entrada::Biblioteca)
            return true;
        if (entrada.familia < 0)
            continue;
        const De de = familias::todas[static_cast<std::size_t>(entrada.familia)].de;
        if (!compartida && de != De::Lote)
            return true;
        deLote = true;
    }
    return !deLote;
}

// What the files say of themselves. Remarks that hold for many files are one each.
void Juicio::senalesDeLecturas()
{
    QMap<int, Hallazgo> comunes;
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        const Entrada &entrada = m_inventario.archivos[i];
        for (const Lectura::Senal &senal : m_lecturas[i].senales) {
            const Regla &regla = reglas::todas[senal.regla];
            if (regla.gravedad != Gravedad::Nota) {
                m_malas[i] = 1;
                avisar(senal.regla, entrada.texto, senal.detalle, senal.veces);
                continue;
            }
            Hallazgo &comun = comunes[senal.regla];
            if (comun.regla == nullptr)
                comun = {.regla = &regla,
                         .archivo = entrada.texto,
                         .detalle = senal.detalle,
                         .veces = 0};
            ++comun.veces;
        }
    }
    m_resultado.hallazgos.append(comunes.values());
}

void Juicio::avisar(reglas::Cual regla, const QString &archivo, const QString &detalle, int veces)
{
    Hallazgo hallazgo;
    hallazgo.regla = &reglas::todas[regla];
    hallazgo.archivo = archivo;
    hallazgo.detalle = detalle;
    hallazgo.veces = veces;
    ponerDueno(hallazgo);
    m_resultado.hallazgos.append(hallazgo);
}

// Of one page one thing is said: the first that is wrong with it.
void Juicio::avisarPagina(int cual, reglas::Cual regla, const QString &detalle)
{
    const auto lugar = static_cast<std::size_t>(cual);
    if (m_malas[lugar] != 0)
        return;
    m_malas[lugar] = 1;
    avisar(regla, m_inventario.archivos[lugar].texto, detalle);
}

void Juicio::ponerDueno(Hallazgo &hallazgo) const
{
    const auto lugar = familias::lugarDe(hallazgo.archivo);
    if (!lugar)
        return;
    const QString clave = texto::clave(lugar->id);
    QString salon;
    switch (familias::todas[lugar->familia].de) {
    case De::Colegio:
        return;
    case De::Salon:
        salon = clave;
        break;
    case De::Lote:
        // A work sheet is a subject's in a classroom.
        if (lugar->familia == familias::Planillas) {
            salon = clave.section(u'-', 0, 0);
            break;
        }
        [[fallthrough]];
    case De::Alumno:
    case De::Foto: {
        const Persona persona = m_personas.value(clave);
        hallazgo.idPersona = persona.id.isEmpty() ? lugar->id : persona.id;
        hallazgo.persona = persona.nombre.isEmpty() ? hallazgo.idPersona : persona.nombre;
        salon = persona.salon;
    }
    }
    if (const auto hallado = m_salones.constFind(salon); hallado != m_salones.constEnd()) {
        hallazgo.idSalon = hallado->id;
        hallazgo.salon = hallado->nombre.isEmpty() ? hallado->id : hallado->nombre;
    }
}

void Juicio::ordenar()
{
    std::stable_sort(m_resultado.hallazgos.begin(), m_resultado.hallazgos.end(),
                     [](const Hallazgo &uno, const Hallazgo &otro) {
                         return std::tie(uno.regla, uno.salon, uno.persona, uno.archivo)
                                < std::tie(otro.regla, otro.salon, otro.persona, otro.archivo);
                     });
}

// An address in a page may be as long as the page; what is shown of it is not. Last, because files
// are known by their whole paths until then.
void Juicio::acortar()
{
    constexpr qsizetype largoMaximo = 1000; // real paths stay far below
    for (Hallazgo &hallazgo : m_resultado.hallazgos) {
        for (QString *texto : {&hallazgo.archivo, &hallazgo.detalle, &hallazgo.idPersona,
                               &hallazgo.persona, &hallazgo.idSalon, &hallazgo.salon}) {
            if (texto->size() > largoMaximo)
                *texto = texto->first(largoMaximo) + u'…';
        }
    }
}
