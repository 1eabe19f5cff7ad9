// SPDX-License-Identifier: MIT
// A run that something goes wrong in, and what it leaves of an archive.
#pragma once

#include "archive/historico.h"
#include "escenario/Escenario.h"
#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"

#include <QDir>
#include <QDirIterator>
#include <QMap>
#include <QTest>

#include <memory>

namespace corridaConFallas {

// Every file of the archive, with its length, by its path.
inline QMap<QString, qint64> contenido(const Escenario &e)
{
    QMap<QString, qint64> archivos;
    QDirIterator it(e.personal.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        archivos.insert(QDir(e.personal.path()).relativeFilePath(it.filePath()),
                        it.fileInfo().size());
    }
    return archivos;
}

// Files that only one of the two has.
inline QStringList diferencia(const QMap<QString, qint64> &una, const QMap<QString, qint64> &otra)
{
    QStringList resultado;
    for (auto it = una.cbegin(); it != una.cend(); ++it) {
        if (!otra.contains(it.key()))
            resultado.append(it.key());
    }
    for (auto it = otra.cbegin(); it != otra.cend(); ++it) {
        if (!una.contains(it.key()))
            resultado.append(it.key());
    }
    return resultado;
}

// Of one classroom, to the end.
inline void correr(Escenario &e)
{
    tcSalones salones(e.entorno);
    tcAlumnos alumnos(e.entorno);
    std::unique_ptr<tcMaterias> materias;
    salones.Fcargar(QStringLiteral("501,QUINTO A"));
    descargarHistorico(e.entorno, salones, alumnos, materias);
    // The last step of the run was reached.
    QCOMPARE(e.destinos().last(), QStringLiteral("/imgTXT.php?txt=Puesto"));
}

} // namespace corridaConFallas
