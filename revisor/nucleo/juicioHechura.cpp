// SPDX-License-Identifier: MIT
// Links that lead nowhere in all pages of a kind: the service makes its pages so. A download that
// fails does so page by page, and none brings what no section of an archive holds.
#include "Juicio.h"

#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

// An address without the page's own id and with its numbers all alike, so that siblings' addresses
// are one.
std::size_t formaDe(const QString &direccion, const QString &id)
{
    QString forma = direccion;
    if (!id.isEmpty())
        forma.replace(id, u"0"_s);
    QString sinNumeros;
    for (const QChar c : std::as_const(forma)) {
        if (!c.isDigit())
            sinNumeros += c;
        else if (!sinNumeros.endsWith(u'0'))
            sinNumeros += u'0';
    }
    return qHash(sinNumeros);
}

} // namespace

Juicio::Formas Juicio::formasDe(std::size_t pagina) const
{
    const QString &id = m_inventario.archivos[pagina].id;
    Formas formas;
    for (const Lectura::Ausencia &ausencia : m_lecturas[pagina].ausencias) {
        if (esRoto(ausencia))
            formas.insert(formaDe(ausencia.ruta, id));
    }
    for (const QString &direccion : m_lecturas[pagina].fuera)
        formas.insert(formaDe(direccion, id));
    return formas;
}

// What more than half of the pages of a kind have.
void Juicio::reunirHechura()
{
    std::array<std::unordered_map<std::size_t, std::size_t>, familias::Cuantas> veces;
    std::array<std::size_t, familias::Cuantas> paginas{};
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        if (!m_lecturas[i].comparable)
            continue;
        const auto familia = static_cast<std::size_t>(m_inventario.archivos[i].familia);
        ++paginas[familia];
        for (const std::size_t forma : formasDe(i))
            ++veces[familia][forma];
    }
    for (std::size_t familia = 0; familia < veces.size(); ++familia) {
        for (const auto &[forma, cuantas] : veces[familia]) {
            if (paginas[familia] >= familiaMinima && cuantas * 2 > paginas[familia])
                m_hechura[familia].insert(forma);
        }
    }
}

// The front page has no siblings, and comes whole or not at all.
bool Juicio::esDeHechura(std::size_t pagina, const QString &direccion) const
{
    const Entrada &entrada = m_inventario.archivos[pagina];
    if (entrada.familia < 0)
        return false;
    return entrada.familia == familias::Portada
           || m_hechura[static_cast<std::size_t>(entrada.familia)].contains(
               formaDe(direccion, entrada.id));
}
