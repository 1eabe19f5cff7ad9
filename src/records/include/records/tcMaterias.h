// SPDX-License-Identifier: MIT
// The school's subjects.
#pragma once

#include "records/tcListaDe.h"
#include "records/tcUnaMateria.h"

struct Entorno;

class tcMaterias : public tcListaDe<tcUnaMateria> {
    Q_OBJECT
public:
    // Borrowed: `entorno` must outlive the list.
    explicit tcMaterias(Entorno &entorno) : m_entorno(entorno) {}

    // Adds a record under the key `sKey` and returns it, also when the key is already there and
    // the record is refused.
    Referencia Add(const QString &id, const QString &nombre, const QString &area,
                   const QString &sKey);

    // Adds the records of a matrix reply to those that are there; lets the window's other
    // handlers run after each row.
    void Fcargar(const QString &rta);

    Elemento elemento(int posicion) const override;

    // Stores the label images of all subjects, areas and fixed headings; see archive/etiquetas.h.
    void downLabels();

private:
    Entorno &m_entorno;
};
