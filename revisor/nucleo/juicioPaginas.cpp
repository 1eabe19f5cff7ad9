// SPDX-License-Identifier: MIT
// What a page is, told by those of its own kind.
#include "Juicio.h"
#include "lecturaPagina.h"
#include "platform/codepage.h"
#include "texto.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t familiaGrande = 8; // what so many have in common is their nature
constexpr std::size_t marcasMinimas = 4; // that a family must have in common

template <typename Si>
std::size_t cuantas(const std::vector<int> &paginas, Si si)
{
    return static_cast<std::size_t>(std::count_if(paginas.begin(), paginas.end(), si));
}

} // namespace

void Juicio::compararPaginas()
{
    for (std::size_t i = 0; i < familias::todas.size(); ++i)
        compararFamilia(static_cast<familias::Cual>(i));
    sinHermanas();
}

void Juicio::compararFamilia(familias::Cual familia)
{
    std::vector<int> paginas;
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        if (m_inventario.archivos[i].familia != familia || !m_lecturas[i].comparable)
            continue;
        if (m_lecturas[i].diceError)
            avisarPagina(static_cast<int>(i), reglas::PaginaDeError, m_lecturas[i].titulo);
        else
            paginas.push_back(static_cast<int>(i));
    }
    const De de = familias::todas[familia].de;
    if (de == De::Alumno || (de == De::Lote && familia != familias::Planillas))
        repetidas(paginas);
    std::erase_if(paginas, [&](int i) { return m_malas[static_cast<std::size_t>(i)] != 0; });
    ajenasPorSusMarcas(paginas);
    std::erase_if(paginas, [&](int i) { return m_malas[static_cast<std::size_t>(i)] != 0; });
    cortadas(paginas);
    if (familias::todas[familia].guion.isEmpty())
        return;
    for (const int pagina : paginas) {
        if (!m_lecturas[static_cast<std::size_t>(pagina)].conGuion)
            avisarPagina(pagina, reglas::SinGuion);
    }
}

// Pages of several students that are alike to the byte.
void Juicio::repetidas(const std::vector<int> &paginas)
{
    std::unordered_map<std::uint64_t, std::vector<int>> porHuella;
    for (const int pagina : paginas) {
        const Lectura &lectura = m_lecturas[static_cast<std::size_t>(pagina)];
        porHuella[lectura.huella ^ static_cast<std::uint64_t>(lectura.largo)].push_back(pagina);
    }
    for (const int pagina : paginas) { // in the order of the files
        const Lectura &lectura = m_lecturas[static_cast<std::size_t>(pagina)];
        const auto &iguales = porHuella[lectura.huella ^ static_cast<std::uint64_t>(lectura.largo)];
        if (iguales.size() > 1 && iguales.front() == pagina
            && cuerpoDe(iguales[0]) == cuerpoDe(iguales[1]))
            avisarRepetidas(iguales);
    }
}

void Juicio::avisarRepetidas(const std::vector<int> &iguales)
{
    const QByteArray texto = cuerpoDe(iguales.front());
    const auto esSuya = [&](int i) {
        const QString clave = texto::clave(m_inventario.archivos[static_cast<std::size_t>(i)].id);
        const QByteArray nombre = codepage::aBytes(m_personas.value(clave).nombre);
        return m_lecturas[static_cast<std::size_t>(i)].mencionaSuId
               || (!nombre.isEmpty() && texto.contains(nombre));
    };
    // One who is registered twice has two pages that are alike.
    QSet<QString> nombres;
    for (const int pagina : iguales) {
        const Entrada &entrada = m_inventario.archivos[static_cast<std::size_t>(pagina)];
        nombres.insert(m_personas.value(texto::clave(entrada.id)).nombre);
    }
    const std::size_t suyas = cuantas(iguales, esSuya);
    if (suyas == iguales.size() && nombres.size() == 1 && !nombres.values().first().isEmpty())
        return;
    // Nobody's own, many times: what the service says when it has no page.
    const bool deNadie = suyas == 0 && iguales.size() >= familiaMinima;
    const auto duena = std::find_if(iguales.begin(), iguales.end(), esSuya);
    for (const int pagina : iguales) {
        if (suyas == 1 && pagina == *duena)
            continue;
        const int otra = duena != iguales.end() && *duena != pagina ? *duena
                         : pagina == iguales[0]                     ? iguales[1]
                                                                    : iguales[0];
        const QString detalle =
            deNadie ? u"La misma página está en %1 documentos."_s.arg(iguales.size())
                    : u"Es igual a %1."_s.arg(
                        m_inventario.archivos[static_cast<std::size_t>(otra)].texto);
        avisarPagina(pagina, deNadie ? reglas::PaginaDeError : reglas::PaginaAjena, detalle);
    }
}

QByteArray Juicio::cuerpoDe(int pagina) const
{
    const Entrada &entrada = m_inventario.archivos[static_cast<std::size_t>(pagina)];
    const auto bytes = texto::leer(m_contexto.carpeta / entrada.ruta, paginaMaxima);
    const Familia &familia = familias::todas[static_cast<std::size_t>(entrada.familia)];
    return bytes ? ::cuerpoDe(*bytes, familia).bytes : QByteArray();
}

// What more than half of the pages are made of, as a question about one of their marks.
Juicio::Marcas Juicio::marcasComunes(const std::vector<int> &paginas) const
{
    std::unordered_map<std::uint32_t, std::size_t> veces;
    for (const int pagina : paginas) {
        for (const std::uint32_t marca : m_lecturas[static_cast<std::size_t>(pagina)].marcas)
            ++veces[marca];
    }
    Marcas comunes;
    for (const auto &[marca, cuantasVeces] : veces) {
        if (cuantasVeces * 2 > paginas.size())
            comunes.insert(marca);
    }
    return comunes;
}

std::size_t Juicio::marcasEn(int pagina, const Marcas &comunes) const
{
    const auto &marcas = m_lecturas[static_cast<std::size_t>(pagina)].marcas;
    return static_cast<std::size_t>(
        std::count_if(marcas.begin(), marcas.end(),
                      [&](std::uint32_t marca) { return comunes.contains(marca); }));
}

// A page that has next to nothing of what most of its siblings are made of is none of them. An
// empty classroom's page lacks its rows and keeps all the rest.
void Juicio::ajenasPorSusMarcas(const std::vector<int> &paginas)
{
    if (paginas.size() < familiaMinima)
        return;
    const Marcas comunes = marcasComunes(paginas);
    if (comunes.size() < marcasMinimas)
        return;
    for (const int pagina : paginas) {
        if (marcasEn(pagina, comunes) * 4 < comunes.size())
            avisarPagina(pagina, reglas::PaginaDeError,
                         m_lecturas[static_cast<std::size_t>(pagina)].titulo);
    }
}

// A page with few siblings, as the front page is, or one of few classrooms half of which failed,
// stands beside all pages of the archive: it is none of them when it has nothing in common with
// them and is next to nothing itself.
void Juicio::sinHermanas()
{
    std::vector<int> paginas;
    std::vector<qint64> largos;
    std::array<std::size_t, familias::Cuantas> deFamilia{};
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        const int familia = m_inventario.archivos[i].familia;
        if (familia < 0 || !m_lecturas[i].comparable)
            continue;
        paginas.push_back(static_cast<int>(i));
        largos.push_back(m_lecturas[i].largo);
        ++deFamilia[static_cast<std::size_t>(familia)];
    }
    if (paginas.size() < familiaMinima)
        return;
    const auto medio = largos.begin() + static_cast<std::ptrdiff_t>(largos.size() / 2);
    std::nth_element(largos.begin(), medio, largos.end());
    const Marcas comunes = marcasComunes(paginas);
    for (const int pagina : paginas) {
        const auto i = static_cast<std::size_t>(pagina);
        const auto familia = static_cast<std::size_t>(m_inventario.archivos[i].familia);
        if (deFamilia[familia] < familiaGrande && comunes.size() >= marcasMinimas
            && marcasEn(pagina, comunes) == 0 && m_lecturas[i].largo * 8 < *medio)
            avisarPagina(pagina, reglas::PaginaDeError, m_lecturas[i].titulo);
    }
}

// Whether any page of the archive ends in </html>.
bool Juicio::algunaCierra() const
{
    return std::any_of(m_lecturas.begin(), m_lecturas.end(),
                       [](const Lectura &una) { return una.cierra; });
}

// Its siblings end in </html>, or its own <html> wants that. Where no page of a kind ends so, that
// is how the service makes them; too few of a kind stand beside all pages of the archive.
void Juicio::cortadas(const std::vector<int> &paginas)
{
    const std::size_t cierran =
        cuantas(paginas, [&](int i) { return m_lecturas[static_cast<std::size_t>(i)].cierra; });
    const bool bastantes = paginas.size() >= familiaMinima;
    const bool loHacen = bastantes ? cierran * 2 > paginas.size() : cierran > 0;
    const bool alguna = cierran > 0 || (!bastantes && algunaCierra());
    for (const int pagina : paginas) {
        const Lectura &lectura = m_lecturas[static_cast<std::size_t>(pagina)];
        if (!lectura.cierra && (loHacen || (alguna && lectura.abreHtml)))
            avisarPagina(pagina, reglas::PaginaCortada);
    }
}
