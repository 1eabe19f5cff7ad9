// SPDX-License-Identifier: MIT
// Programs that note how they were called and what they read, for the tests of the shell verbs.
#pragma once

#include "escenario/ProgramasEnPath.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// What a program of the test's notes of itself, in files named by its process number: how it was
// called, once it runs; each line of its input; that its input has ended.
inline const QByteArray anota = R"sh(#!/bin/sh
yo="$REGISTRO/$$"
printf '%s\n' "$0" "$#" "$(cut -d' ' -f6 /proc/$$/stat)" "$(readlink /proc/$$/fd/1)" \
    "$(readlink /proc/$$/fd/2)" "$@" > "$yo.nuevo"
mv "$yo.nuevo" "$yo.inicio"
)sh";
inline const QByteArray leeTodo =
    R"sh(while IFS= read -r linea; do printf '%s\n' "$linea" >> "$yo.lineas"; done
: > "$yo.fin"
)sh";
inline const QByteArray leeUna = R"sh(IFS= read -r linea; printf '%s\n' "$linea" > "$yo.lineas"
: > "$yo.fin"
)sh";
// Not for ever: a test that was broken off gives no leave.
inline const QByteArray esperaPermiso = R"sh(veces=0
while [ ! -e "$REGISTRO/sigue" ] && [ $veces -lt 1200 ]; do sleep 0.05; veces=$((veces + 1)); done
)sh";
inline const QByteArray terminaSiEsPrimero = R"sh(mkdir "$REGISTRO/primero" 2>/dev/null && exit 0
)sh";

// What a program has noted of its start.
struct Inicio {
    qint64 pid = 0;
    QByteArray programa;
    QByteArray cuantos; // arguments
    QByteArray sesion;
    QByteArray salida;
    QByteArray errores;
    QList<QByteArray> argumentos;
};

// Whether there is no such process any more, or one that nobody has reaped.
bool haTerminado(qint64 pid);
// What the process was given, as "NAME=value".
QList<QByteArray> entornoDe(qint64 pid);
QList<QByteArray> enBytes(const QStringList &rutas);

// What the test classes begin each test with and end it with. Programs are put where PATH finds
// them first; documents to print stand in a folder of their own.
class ProgramasAnotados {
protected:
    void empezar();
    // Lets every program go on, and waits for the end of each.
    void acabar();

    void ponerPrograma(const QString &nombre, const QByteArray &guion) const;
    // The same in a folder that is on no path, "lado" for one.
    void ponerProgramaEn(const QString &carpeta, const QString &nombre,
                         const QByteArray &guion) const;
    QString documento(const QString &nombre) const;
    QStringList documentos(int cuantos) const;
    void dejarSeguir() const;
    // This test's own executable in the folder "lado", in the role that its main gives it.
    bool correrCopia(const QString &verbo, const QString &cual) const;

    QList<Inicio> inicios() const;
    // The one that is not among `vistos`; 0 when there is none.
    qint64 otroQue(const QList<qint64> &vistos) const;
    QList<QByteArray> lineas(qint64 pid) const;
    QList<QByteArray> lineas() const;        // of the only one
    QList<QByteArray> otroConLineas() const; // of the one that has noted any
    bool terminados() const;
    QList<qint64> hijos() const; // that this test has started

    std::unique_ptr<ProgramasEnPath> m_programas;
    std::unique_ptr<QTemporaryDir> m_carpeta;

private:
    QList<qint64> m_hijosDeAntes; // a worker outlives the Verbos that started it
};
