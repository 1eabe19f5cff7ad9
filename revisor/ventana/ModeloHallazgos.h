// SPDX-License-Identifier: MIT
// The findings as a tree of two levels: groups, and the findings in them. Made for tens of
// thousands: what is shown is made when it is asked for, and a search only counts rows.
#pragma once

#include "Renglon.h"

#include <QAbstractItemModel>
#include <QStringList>

#include <vector>

class ModeloHallazgos : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Columna { Quien, Salon, Que, Detalle, Archivo, Columnas };
    enum class Agrupado { PorSalon, PorClase };

    explicit ModeloHallazgos(QObject *padre = nullptr);

    void poner(const QList<Renglon> &renglones);
    void agrupar(Agrupado agrupado);
    // Only what holds every word of `texto`, without regard to letter case and accents.
    void buscar(const QString &texto);

    // How many findings the search leaves.
    int mostrados() const { return m_mostrados; }
    // The finding of a line; null for a group's. Valid until the next `poner`.
    const Renglon *renglon(const QModelIndex &indice) const;
    // Where a finding stands now; invalid when the search leaves it out.
    QModelIndex indiceDe(const Renglon *renglon) const;

    QModelIndex index(int fila, int columna, const QModelIndex &madre = {}) const override;
    QModelIndex parent(const QModelIndex &indice) const override;
    int rowCount(const QModelIndex &madre = {}) const override;
    int columnCount(const QModelIndex &madre = {}) const override;
    QVariant data(const QModelIndex &indice, int papel = Qt::DisplayRole) const override;
    QVariant headerData(int seccion, Qt::Orientation orientacion,
                        int papel = Qt::DisplayRole) const override;

private:
    struct Grupo {
        QString titulo;
        std::vector<qsizetype> filas; // of m_renglones
    };

    void ordenar();
    void repartir();
    bool mismoGrupo(const Renglon &uno, const Renglon &otro) const;
    QString tituloDe(const Renglon &renglon) const;
    QString textoDe(const Renglon &renglon, int columna) const;

    QList<Renglon> m_renglones;
    QStringList m_buscables; // of each what a search looks into
    std::vector<qsizetype> m_orden;
    std::vector<Grupo> m_grupos;
    QStringList m_palabras;
    Agrupado m_agrupado = Agrupado::PorSalon;
    int m_mostrados = 0;
};
