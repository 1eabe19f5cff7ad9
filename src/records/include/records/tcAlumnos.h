// SPDX-License-Identifier: MIT
// The school's students.
#pragma once

#include "records/tcListaDe.h"
#include "records/tcUnAlumno.h"

struct Entorno;

class tcAlumnos : public tcListaDe<tcUnAlumno> {
    Q_OBJECT
public:
    // Borrowed: `entorno` must outlive the list.
    explicit tcAlumnos(Entorno &entorno) : m_entorno(entorno) {}

    // Adds a record under the key `sKey` and returns it, also when the key is already there and
    // the record is refused.
    Referencia Add(const QString &id, const QString &nombre, const QString &sKey);

    // Adds the records of a matrix reply to those that are there.
    void Fcargar(const QString &rta);

    Elemento elemento(int posicion) const override;

    // Store one page (or photo) for each student in the archive; see archive/descargas.h.
    void downInfoFinal();
    void downCertificado();
    void downHojaMat();
    void downInfoAlumno();
    void downFotosAlumno();

private:
    Entorno &m_entorno;
};
