// SPDX-License-Identifier: MIT
// The school's classrooms.
#pragma once

#include "records/tcListaDe.h"
#include "records/tcUnSalon.h"

struct Entorno;

class tcSalones : public tcListaDe<tcUnSalon> {
    Q_OBJECT
public:
    // Borrowed: `entorno` must outlive the list.
    explicit tcSalones(Entorno &entorno) : m_entorno(entorno) {}

    // Adds a record under the key `sKey` and returns it, also when the key is already there and
    // the record is refused.
    Referencia Add(const QString &id, const QString &salon, const QString &sKey);

    // Adds the records of a matrix reply to those that are there. Every row that makes a record,
    // one with a known key included, is first announced by nuevaLinea.
    void Fcargar(const QString &rta);

    Elemento elemento(int posicion) const override;

    // Store one page for each classroom in the archive; see archive/descargas.h.
    void downSalones();
    void downConsolidadoN();
    void downConsolidadoF();

Q_SIGNALS:
    // A line for the list from which the user picks a classroom.
    void nuevaLinea(const QString &linea);

private:
    Entorno &m_entorno;
};
