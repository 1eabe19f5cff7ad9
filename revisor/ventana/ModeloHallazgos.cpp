// SPDX-License-Identifier: MIT
#include "ModeloHallazgos.h"

#include <QCollator>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

// "PÉREZ" is found by "perez".
QString sinAcentos(const QString &texto)
{
    const QString separado = texto.normalized(QString::NormalizationForm_KD).toCaseFolded();
    QString llano;
    llano.reserve(separado.size());
    for (const QChar letra : separado) {
        if (!letra.isMark())
            llano += letra;
    }
    return llano;
}

// An index of a finding carries its group's number and one more; 0 is an index of a group.
constexpr quintptr deGrupo = 0;

// "8-2" before "10-1"; what concerns no classroom or nobody comes first: it concerns all.
QCollator comoSeLee()
{
    QCollator orden{QLocale(QLocale::Spanish)};
    orden.setNumericMode(true);
    orden.setCaseSensitivity(Qt::CaseInsensitive);
    return orden;
}

} // namespace

ModeloHallazgos::ModeloHallazgos(QObject *padre) : QAbstractItemModel(padre) {}

void ModeloHallazgos::poner(const QList<Renglon> &renglones)
{
    beginResetModel();
    m_renglones = renglones;
    m_buscables.clear();
    m_buscables.reserve(renglones.size());
    for (const Renglon &uno : renglones)
        m_buscables.append(sinAcentos(
            QStringList{uno.quien, uno.id, uno.salon, uno.que, uno.detalle, uno.archivo}.join(
                u'\n')));
    ordenar();
    repartir();
    endResetModel();
}

void ModeloHallazgos::agrupar(Agrupado agrupado)
{
    beginResetModel();
    m_agrupado = agrupado;
    ordenar();
    repartir();
    endResetModel();
}

void ModeloHallazgos::buscar(const QString &texto)
{
    beginResetModel();
    m_palabras = sinAcentos(texto).split(u' ', Qt::SkipEmptyParts);
    repartir();
    endResetModel();
}

// Within a classroom by person, within a kind by classroom and person.
void ModeloHallazgos::ordenar()
{
    const QCollator orden = comoSeLee();
    struct Clave {
        int clase;
        QCollatorSortKey salon;
        QCollatorSortKey quien;
        QCollatorSortKey id; // two of one name
    };
    std::vector<Clave> claves;
    claves.reserve(static_cast<std::size_t>(m_renglones.size()));
    for (const Renglon &uno : m_renglones)
        claves.push_back({m_agrupado == Agrupado::PorClase ? uno.clase : 0,
                          orden.sortKey(uno.salon), orden.sortKey(uno.quien),
                          orden.sortKey(uno.id)});
    m_orden.resize(claves.size());
    std::iota(m_orden.begin(), m_orden.end(), 0);
    std::stable_sort(m_orden.begin(), m_orden.end(), [&claves](qsizetype una, qsizetype otra) {
        const Clave &a = claves[static_cast<std::size_t>(una)];
        const Clave &b = claves[static_cast<std::size_t>(otra)];
        if (a.clase != b.clase)
            return a.clase < b.clase;
        if (const int salon = a.salon.compare(b.salon); salon != 0)
            return salon < 0;
        const int quien = a.quien.compare(b.quien);
        return quien != 0 ? quien < 0 : a.id.compare(b.id) < 0;
    });
}

void ModeloHallazgos::repartir()
{
    m_grupos.clear();
    m_mostrados = 0;
    for (const qsizetype fila : m_orden) {
        const QString &buscable = m_buscables.at(fila);
        if (!std::all_of(m_palabras.begin(), m_palabras.end(),
                         [&](const QString &palabra) { return buscable.contains(palabra); }))
            continue;
        const Renglon &renglon = m_renglones.at(fila);
        if (m_grupos.empty() || !mismoGrupo(m_renglones.at(m_grupos.back().filas[0]), renglon))
            m_grupos.push_back({tituloDe(renglon), {}});
        m_grupos.back().filas.push_back(fila);
        ++m_mostrados;
    }
}

bool ModeloHallazgos::mismoGrupo(const Renglon &uno, const Renglon &otro) const
{
    return m_agrupado == Agrupado::PorClase ? uno.clase == otro.clase : uno.salon == otro.salon;
}

QString ModeloHallazgos::tituloDe(const Renglon &renglon) const
{
    if (m_agrupado == Agrupado::PorClase)
        return renglon.que;
    return renglon.salon.isEmpty() ? u"De ningún salón en particular"_s : renglon.salon;
}

const Renglon *ModeloHallazgos::renglon(const QModelIndex &indice) const
{
    if (!indice.isValid() || indice.internalId() == deGrupo)
        return nullptr;
    const Grupo &grupo = m_grupos[indice.internalId() - 1];
    return &m_renglones.at(grupo.filas[static_cast<std::size_t>(indice.row())]);
}

QModelIndex ModeloHallazgos::indiceDe(const Renglon *renglon) const
{
    for (std::size_t grupo = 0; grupo < m_grupos.size(); ++grupo) {
        const auto &filas = m_grupos[grupo].filas;
        const auto hallada = std::find_if(filas.begin(), filas.end(), [&](qsizetype fila) {
            return &m_renglones.at(fila) == renglon;
        });
        if (hallada != filas.end())
            return createIndex(static_cast<int>(hallada - filas.begin()), Quien, grupo + 1);
    }
    return {};
}

QModelIndex ModeloHallazgos::index(int fila, int columna, const QModelIndex &madre) const
{
    if (!hasIndex(fila, columna, madre))
        return {};
    return createIndex(fila, columna,
                       madre.isValid() ? static_cast<quintptr>(madre.row()) + 1 : deGrupo);
}

QModelIndex ModeloHallazgos::parent(const QModelIndex &indice) const
{
    if (!indice.isValid() || indice.internalId() == deGrupo)
        return {};
    return createIndex(static_cast<int>(indice.internalId() - 1), 0, deGrupo);
}

int ModeloHallazgos::rowCount(const QModelIndex &madre) const
{
    if (!madre.isValid())
        return static_cast<int>(m_grupos.size());
    if (madre.internalId() != deGrupo || madre.column() != 0)
        return 0;
    return static_cast<int>(m_grupos[static_cast<std::size_t>(madre.row())].filas.size());
}

int ModeloHallazgos::columnCount(const QModelIndex & /*madre*/) const
{
    return Columnas;
}

QString ModeloHallazgos::textoDe(const Renglon &renglon, int columna) const
{
    switch (columna) {
    case Quien:
        return renglon.quien.isEmpty() ? u"—"_s : renglon.quien;
    case Salon:
        return renglon.salon.isEmpty() ? u"—"_s : renglon.salon;
    case Que:
        return renglon.que;
    case Detalle:
        return renglon.detalle;
    case Archivo:
        return renglon.archivo;
    default:
        return {};
    }
}

QVariant ModeloHallazgos::data(const QModelIndex &indice, int papel) const
{
    const Renglon *uno = renglon(indice);
    if (uno == nullptr) {
        if (!indice.isValid() || indice.column() != 0
            || (papel != Qt::DisplayRole && papel != Qt::AccessibleTextRole))
            return {};
        const Grupo &grupo = m_grupos[static_cast<std::size_t>(indice.row())];
        return u"%1 (%2)"_s.arg(grupo.titulo, QString::number(grupo.filas.size()));
    }
    if (papel == Qt::DisplayRole)
        return textoDe(*uno, indice.column());
    // The whole line at once: who moves through the tree by ear does not see the other columns.
    if (papel == Qt::AccessibleTextRole && indice.column() == 0) {
        QStringList partes{uno->quien, uno->salon, uno->que, uno->detalle, uno->archivo};
        partes.removeAll(QString());
        return partes.join(u", "_s);
    }
    return {};
}

QVariant ModeloHallazgos::headerData(int seccion, Qt::Orientation orientacion, int papel) const
{
    if (orientacion != Qt::Horizontal || papel != Qt::DisplayRole)
        return {};
    switch (seccion) {
    case Quien:
        return u"De quién"_s;
    case Salon:
        return u"Salón"_s;
    case Que:
        return u"Qué se encontró"_s;
    case Detalle:
        return u"Detalle"_s;
    case Archivo:
        return u"Archivo"_s;
    default:
        return {};
    }
}
