// SPDX-License-Identifier: MIT
// An ordered collection of records with keyed access: insertion order is kept, keys are unique
// without regard to letter case. Records are shared: one that a caller holds outlives its removal
// and the collection.
#pragma once

#include "platform/codepage.h"

#include <QHash>
#include <QList>
#include <QString>

#include <memory>

template <typename Registro>
class tcColeccion {
public:
    using Referencia = std::shared_ptr<Registro>;

    // Adds a record, not null. False when the key is already there: the first record with a key
    // stays.
    bool add(const Referencia &registro, const QString &clave)
    {
        // One look-up for both: in a long list each has to fetch memory from afar.
        Referencia &deClave = m_porClave[codepage::enMinusculas(clave)];
        if (deClave)
            return false;
        deClave = registro;
        m_enOrden.append(registro);
        return true;
    }

    int count() const { return static_cast<int>(m_enOrden.size()); }

    // The record at a position counted from 1, or under a key; null when there is none.
    Referencia item(int posicion) const
    {
        return posicion >= 1 && posicion <= count() ? m_enOrden[posicion - 1] : nullptr;
    }
    Referencia item(const QString &clave) const
    {
        return m_porClave.value(codepage::enMinusculas(clave));
    }

    // False when there is no such record.
    bool remove(int posicion)
    {
        if (posicion < 1 || posicion > count())
            return false;
        m_porClave.remove(m_porClave.key(m_enOrden.takeAt(posicion - 1)));
        return true;
    }
    bool remove(const QString &clave)
    {
        const Referencia registro = m_porClave.take(codepage::enMinusculas(clave));
        return registro && m_enOrden.removeOne(registro);
    }

    // The records in insertion order, as they are now.
    QList<Referencia> enOrden() const { return m_enOrden; }

private:
    QList<Referencia> m_enOrden;
    QHash<QString, Referencia> m_porClave; // by the key in lower case
};
