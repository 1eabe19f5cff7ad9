// SPDX-License-Identifier: MIT
// The operations that the three record lists share: access by position (counted from 1) or by
// key, and walking the records in insertion order.
#pragma once

#include "records/tcColeccion.h"
#include "records/tcLista.h"

template <typename Registro>
class tcListaDe : public tcLista {
public:
    using Referencia = typename tcColeccion<Registro>::Referencia;

    Referencia Item(int posicion) const { return m_coleccion.item(posicion); }
    Referencia Item(const QString &clave) const { return m_coleccion.item(clave); }
    int Count() const override { return m_coleccion.count(); }
    bool Remove(int posicion) { return m_coleccion.remove(posicion); }
    bool Remove(const QString &clave) { return m_coleccion.remove(clave); }
    QList<Referencia> NewEnum() const { return m_coleccion.enOrden(); }

protected:
    // The record comes back even when its key is already there and it was therefore refused.
    Referencia agregar(Registro registro, const QString &sKey)
    {
        auto referencia = std::make_shared<Registro>(std::move(registro));
        [[maybe_unused]] const bool nuevo = m_coleccion.add(referencia, sKey);
        return referencia;
    }

private:
    tcColeccion<Registro> m_coleccion;
};
