// SPDX-License-Identifier: MIT
#include "grupos.h"
#include "revisor/informe.h"

#include <QCollator>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace informe {

namespace {

QCollator comoEnUnaLista()
{
    QCollator orden{QLocale(QLocale::Spanish)};
    orden.setNumericMode(true);
    orden.setCaseSensitivity(Qt::CaseInsensitive);
    return orden;
}

// By name, those without one at the place given; what is equal stays in its order.
template <typename Grupo>
void ordenar(std::vector<Grupo> &grupos, bool sinNombreAlFinal)
{
    const QCollator orden = comoEnUnaLista();
    std::stable_sort(grupos.begin(), grupos.end(), [&](const Grupo &uno, const Grupo &otro) {
        if (uno.nombre.isEmpty() != otro.nombre.isEmpty())
            return uno.nombre.isEmpty() != sinNombreAlFinal;
        return orden.compare(uno.nombre, otro.nombre) < 0;
    });
}

// Groups that come up one after another, each known by its key.
template <typename Grupo, typename Clave>
class Casilleros {
public:
    Grupo &de(const Clave &clave)
    {
        const auto [lugar, nuevo] = m_lugares.emplace(clave, m_grupos.size());
        if (nuevo)
            m_grupos.emplace_back();
        return m_grupos[lugar->second];
    }
    std::vector<Grupo> tomar() { return std::move(m_grupos); }

private:
    std::map<Clave, std::size_t> m_lugares;
    std::vector<Grupo> m_grupos;
};

// Two of the same name are two; one without an id is known by its name.
QString clave(const QString &id, const QString &nombre)
{
    return id.isEmpty() ? u'n' + nombre : u'i' + id;
}

std::vector<DePersona> porPersona(const Hallazgos &hallazgos)
{
    Casilleros<DePersona, QString> personas;
    for (const Hallazgo *hallazgo : hallazgos) {
        DePersona &persona = personas.de(clave(hallazgo->idPersona, hallazgo->persona));
        persona.nombre = conId(hallazgo->persona, hallazgo->idPersona);
        persona.hallazgos.push_back(hallazgo);
    }
    std::vector<DePersona> grupos = personas.tomar();
    ordenar(grupos, false);
    return grupos;
}

struct SalonSinRepartir {
    QString nombre;
    Hallazgos hallazgos;
};

} // namespace

std::vector<DeSalon> porSalon(const Resultado &resultado)
{
    Casilleros<SalonSinRepartir, QString> salones;
    for (const Hallazgo &hallazgo : resultado.hallazgos) {
        if (hallazgo.regla->gravedad == Gravedad::Nota)
            continue;
        SalonSinRepartir &salon = salones.de(clave(hallazgo.idSalon, hallazgo.salon));
        salon.nombre = conId(hallazgo.salon, hallazgo.idSalon);
        salon.hallazgos.push_back(&hallazgo);
    }
    std::vector<SalonSinRepartir> enOrden = salones.tomar();
    ordenar(enOrden, true);
    std::vector<DeSalon> grupos;
    grupos.reserve(enOrden.size());
    for (const SalonSinRepartir &salon : enOrden)
        grupos.push_back({.nombre = salon.nombre, .personas = porPersona(salon.hallazgos)});
    return grupos;
}

std::vector<DeRegla> notas(const Resultado &resultado)
{
    Casilleros<DeRegla, const Regla *> reglas;
    for (const Hallazgo &hallazgo : resultado.hallazgos) {
        if (hallazgo.regla->gravedad != Gravedad::Nota)
            continue;
        DeRegla &grupo = reglas.de(hallazgo.regla);
        grupo.regla = hallazgo.regla;
        grupo.hallazgos.push_back(&hallazgo);
    }
    return reglas.tomar();
}

QString conId(const QString &nombre, const QString &id)
{
    const QString limpio = legible(nombre.isEmpty() ? id : nombre);
    return id.isEmpty() || nombre.isEmpty() || nombre == id ? limpio
                                                            : u"%1 (%2)"_s.arg(limpio, legible(id));
}

} // namespace informe
