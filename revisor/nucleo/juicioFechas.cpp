// SPDX-License-Identifier: MIT
// What the files' time stamps tell of the last download, and of files that it did not renew.
#include "Juicio.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 holgura = 3000; // milliseconds; a FAT stick counts in two seconds

// The download waits half a second after each image; a copy of the archive does not.
constexpr qint64 porImagen = 250;

// Where a file stands in the order of a download, among those that no print job renews too.
enum Paso {
    Inicio,
    Portada,
    Salones,
    ConsolidadoN,
    ConsolidadoF,
    Matriculas,
    InfoAlumnos,
    Etiquetas,
    Pasos
};

std::optional<Paso> pasoDe(const Entrada &entrada)
{
    if (entrada.clase == Entrada::Biblioteca || entrada.clase == Entrada::Configuracion)
        return Inicio;
    if (entrada.texto.startsWith(u"archivos/images/labels/"_s, Qt::CaseInsensitive))
        return Etiquetas;
    switch (entrada.familia) {
    case familias::Portada:
        return Portada;
    case familias::Salones:
        return Salones;
    case familias::ConsolidadoN:
        return ConsolidadoN;
    case familias::ConsolidadoF:
        return ConsolidadoF;
    case familias::Matriculas:
        return Matriculas;
    case familias::InfoAlumnos:
        return InfoAlumnos;
    default:
        return std::nullopt;
    }
}

bool esDeLaDescarga(const Entrada &entrada)
{
    if (entrada.familia >= 0)
        return familias::todas[static_cast<std::size_t>(entrada.familia)].de != De::Lote;
    return entrada.clase == Entrada::Imagen
           && entrada.texto.startsWith(u"archivos/images/"_s, Qt::CaseInsensitive);
}

} // namespace

// Whether they are those of one download after the other, each step's after the last one's, and of
// one that broke off before its end. A copy that did not keep them has another order, or none.
bool Juicio::fechasDeUnaDescarga() const
{
    std::array<qint64, Pasos> ultimas{}; // the newest file of each step
    qint64 imagenes = 0;
    qint64 ultima = m_inicio;
    for (const Entrada &entrada : m_inventario.archivos) {
        if (const auto paso = pasoDe(entrada))
            ultimas[*paso] = std::max(ultimas[*paso], entrada.fecha);
        if (entrada.fecha < m_inicio || !esDeLaDescarga(entrada))
            continue;
        ultima = std::max(ultima, entrada.fecha);
        imagenes += entrada.clase == Entrada::Imagen ? 1 : 0;
    }
    if (ultima - m_inicio < std::max(imagenes * porImagen, holgura))
        return false;
    bool llego = true;
    qint64 anterior = m_inicio;
    for (const qint64 una : ultimas) {
        if (una == 0)
            continue;
        const bool nueva = una >= m_inicio - holgura;
        if (nueva && (!llego || una < anterior - holgura))
            return false;
        llego = nueva;
        anterior = nueva ? una : anterior;
    }
    return true;
}

void Juicio::juzgarFechas()
{
    qint64 primera = std::numeric_limits<qint64>::max();
    qint64 ultima = 0;
    m_inicio = primera;
    for (const Entrada &entrada : m_inventario.archivos) {
        primera = std::min(primera, entrada.fecha);
        ultima = std::max(ultima, entrada.fecha);
        if (pasoDe(entrada) == Inicio)
            m_inicio = std::min(m_inicio, entrada.fecha);
    }
    m_resultado.fechasUtiles =
        m_descargado && m_inicio != std::numeric_limits<qint64>::max() && fechasDeUnaDescarga();
    if (m_resultado.fechasUtiles) {
        avisarViejos();
        primera = m_inicio;
        ultima = m_inicio;
        for (const Entrada &entrada : m_inventario.archivos) {
            if (pasoDe(entrada))
                ultima = std::max(ultima, entrada.fecha);
        }
    }
    if (ultima == 0)
        return;
    m_resultado.desde = QDateTime::fromMSecsSinceEpoch(primera, Qt::UTC);
    m_resultado.hasta = QDateTime::fromMSecsSinceEpoch(ultima, Qt::UTC);
}

// A file that the last download did not renew: of somebody who is no longer on the list when no
// page of that download links it, else a page that it left out, or did not come to.
void Juicio::avisarViejos()
{
    const auto esViejo = [&](const Entrada &entrada) {
        return entrada.fecha < m_inicio - holgura;
    };
    bool terminada = false;
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        const Entrada &entrada = m_inventario.archivos[i];
        if (esViejo(entrada))
            continue;
        terminada |= pasoDe(entrada) == Etiquetas;
        for (const int hacia : m_lecturas[i].hacia)
            m_conocidas[static_cast<std::size_t>(hacia)] = 1;
    }
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        const Entrada &entrada = m_inventario.archivos[i];
        if (!esViejo(entrada) || !esDeLaDescarga(entrada))
            continue;
        const QString detalle = u"Es del %1."_s.arg(
            QDateTime::fromMSecsSinceEpoch(entrada.fecha).toString(u"dd/MM/yyyy HH:mm"_s));
        if (!terminada || m_conocidas[i] != 0 || entrada.familia == familias::Portada)
            avisarPagina(static_cast<int>(i), reglas::PaginaVieja, detalle);
        else
            avisar(reglas::DeOtraDescarga, entrada.texto, detalle);
    }
}
